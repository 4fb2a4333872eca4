#pragma once

#include "ui/Picture.h"

#include <QWidget>

#include <optional>

class QLabel;

/// The circle's listener by the pattern of the other controls. A ring only shows: it tells its delegate
/// nothing.
class CircleIndicatorViewDelegate {
protected:
    ~CircleIndicatorViewDelegate() = default;
};

/// The progress ring: a value with a caption in a circle; in transparent mode over a white disc with a pie of
/// the progress. Screen readers hear value, caption and percentage. Both texts are shown in upper case.
class CircleIndicatorView final : public QWidget {
    Q_OBJECT

public:
    explicit CircleIndicatorView(QWidget* parent = nullptr);

    /// The number shown. Nothing leaves the label as it was; an empty text empties it.
    [[nodiscard]] const std::optional<QString>& value() const { return m_value; }
    void setValue(const std::optional<QString>& value);
    /// The caption under it; as with the value.
    [[nodiscard]] const std::optional<QString>& title() const { return m_title; }
    void setTitle(const std::optional<QString>& title);
    /// Progress, 0 to 100; the caller keeps it there.
    [[nodiscard]] double percent() const { return m_percent; }
    void setPercent(double percent);
    /// Draw disc, pie and ring; otherwise only the ring.
    [[nodiscard]] bool transparent() const { return m_transparent; }
    void setTransparent(bool transparent);
    /// Gap between value and caption. Set at most once, before the view is shown.
    [[nodiscard]] int marginBetweenValueAndTitle() const { return m_marginBetweenValueAndTitle; }
    void setMarginBetweenValueAndTitle(int margin);
    /// How much higher the value stands. Set at most once, before the view is shown.
    [[nodiscard]] double verticalOffset() const { return m_verticalOffset; }
    void setVerticalOffset(double offset);

    [[nodiscard]] CircleIndicatorViewDelegate* delegate() const { return m_delegate; }
    void setDelegate(CircleIndicatorViewDelegate* delegate) { m_delegate = delegate; }

    /// Whether the smaller side is more than 105: larger fonts and ring.
    [[nodiscard]] bool isLarge() const;
    [[nodiscard]] QLabel* textFieldValue() const { return m_textFieldValue; }
    [[nodiscard]] QLabel* textFieldTitle() const { return m_textFieldTitle; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void createControls();
    void addConstraints();
    void drawImage(QPainter& painter) const;
    void drawTransBack(QPainter& painter) const;
    void drawTransFront(QPainter& painter) const;
    void drawTransImage(QPainter& painter) const;
    void announce();

    std::optional<QString> m_value;
    std::optional<QString> m_title;
    double m_percent = 0;
    double m_verticalOffset = 0;
    int m_marginBetweenValueAndTitle = 0;
    bool m_transparent = false;
    CircleIndicatorViewDelegate* m_delegate = nullptr;
    Picture m_image;
    Picture m_imageLarge;
    Picture m_imageTrans;
    Picture m_imageTransLarge;
    QLabel* m_textFieldTitle = nullptr;
    QLabel* m_textFieldValue = nullptr;
};
