#pragma once

#include <QLabel>

/// A label whose text screen readers speak when it appears or changes, wherever their user is just then. In
/// Designer forms it is promoted from QLabel.
class SpokenLabel : public QLabel {
    Q_OBJECT

public:
    explicit SpokenLabel(QWidget* parent = nullptr);

    /// A text that is shown already is not said again.
    void setText(const QString& text);
    /// The text without its mark-up.
    [[nodiscard]] QString plainText() const;
};
