#pragma once

#include "ui/StrokeView.h"

class VerticalRuleView final : public StrokeView {
    Q_OBJECT

public:
    explicit VerticalRuleView(QWidget* parent = nullptr);
};
