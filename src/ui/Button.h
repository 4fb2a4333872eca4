#pragma once

#include "ui/ButtonPainter.h"
#include "ui/FocusMark.h"
#include "ui/KeyRepeat.h"

#include <QPushButton>

#include <functional>
#include <optional>

/// What all buttons of the program share: a title with a colour and an underline of its own, a picture, a
/// background, and one way of being painted. In Designer forms it is promoted from QPushButton.
class Button : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(Qt::ToolButtonStyle toolButtonStyle READ toolButtonStyle WRITE setToolButtonStyle)

public:
    explicit Button(QWidget* parent = nullptr);

    /// The title's colour: that of its role in the palette, which is ButtonText until another is set.
    [[nodiscard]] QColor textColor() const { return palette().color(m_textRole); }
    virtual void setTextRole(QPalette::ColorRole role);
    void setUnderLineText();
    void removeUnderLineText();

    [[nodiscard]] const Picture& image() const { return m_image; }
    void setImage(const Picture& image);
    [[nodiscard]] Qt::ToolButtonStyle toolButtonStyle() const { return m_toolButtonStyle; }
    void setToolButtonStyle(Qt::ToolButtonStyle style);
    /// The colour of its background role; invalid while it is flat, which stands for none.
    [[nodiscard]] QColor backgroundColor() const;

    /// Whether it bears the mark of the keyboard focus.
    [[nodiscard]] bool showsFocus() const { return m_focusMark.isVisible(); }

    void onClicked(std::function<void()> callback);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    /// What is to be painted now.
    [[nodiscard]] virtual ButtonState state() const;
    [[nodiscard]] QPalette::ColorRole textRole() const { return m_textRole; }

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

private:
    QPalette::ColorRole m_textRole = QPalette::ButtonText;
    Picture m_image;
    Qt::ToolButtonStyle m_toolButtonStyle = Qt::ToolButtonTextBesideIcon;
    FocusMark m_focusMark {*this};
    KeyRepeat m_keyRepeat;
    std::optional<quint64> m_pressedAt; ///< ms
    bool m_isUnderlined = false;
};
