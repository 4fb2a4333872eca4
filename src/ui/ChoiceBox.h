#pragma once

#include "ui/FocusMark.h"

#include <QComboBox>

/// A choice among few texts, in the look of the buttons around it.
class ChoiceBox final : public QComboBox {
    Q_OBJECT

public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    FocusMark m_focusMark {*this};
};
