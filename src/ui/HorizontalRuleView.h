#pragma once

#include "ui/StrokeView.h"

class HorizontalRuleView final : public StrokeView {
    Q_OBJECT

public:
    explicit HorizontalRuleView(QWidget* parent = nullptr);
};
