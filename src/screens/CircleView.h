#pragma once

#include <QWidget>

#include <optional>

class QLabel;

/// What the circles share: a number with a caption under it, both in upper case in the middle, each shortened
/// with an ellipsis where the circle is too narrow for it. Screen readers hear both as one name.
class CircleView : public QWidget {
    Q_OBJECT

public:
    /// The number. Nothing leaves the label as it was; an empty text empties it.
    [[nodiscard]] const std::optional<QString>& value() const { return m_value; }
    void setValue(const std::optional<QString>& value);
    /// The caption; as with the value.
    [[nodiscard]] const std::optional<QString>& title() const { return m_title; }
    void setTitle(const std::optional<QString>& title);
    /// Number and caption in one line.
    [[nodiscard]] QString text() const;
    /// How much higher the value stands. Set at most once, before the view is shown.
    [[nodiscard]] double verticalOffset() const { return m_verticalOffset; }
    void setVerticalOffset(double offset);

    [[nodiscard]] QLabel* textFieldValue() const { return m_textFieldValue; }
    [[nodiscard]] QLabel* textFieldTitle() const { return m_textFieldTitle; }

protected:
    /// @param role whose colour both texts have
    CircleView(QPalette::ColorRole role, QWidget* parent);

    /// Lays the labels out for the present size and texts.
    virtual void addConstraints() { layOutLabels(0, 0); }
    /// Both centred: the value's middle `rise` above the circle's and further by the offset, the caption
    /// `gap` below the value.
    void layOutLabels(double rise, int gap);
    /// For screen readers.
    virtual void announce() { }
    void resizeEvent(QResizeEvent* event) override;

private:
    std::optional<QString> m_value;
    std::optional<QString> m_title;
    double m_verticalOffset = 0;
    QLabel* m_textFieldTitle;
    QLabel* m_textFieldValue;
};
