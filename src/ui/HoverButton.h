#pragma once

#include "ui/Button.h"

/// A button that shows another picture, another background and a title in the hover colour while the mouse is
/// inside, and gets its own look back when the mouse leaves.
class HoverButton : public Button {
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageNamed)

public:
    explicit HoverButton(QWidget* parent = nullptr);

    /// Begins the hover look; does nothing while the button is disabled.
    void mouseEntered();
    /// Ends the hover look. A screen that hides the button under the mouse calls this first. Called without
    /// an entry before it, it gives the title the colour that the last entry found.
    void mouseExited();

    /// A colour set while the mouse is inside is the one that its leaving restores.
    void setTextRole(QPalette::ColorRole role) override;
    [[nodiscard]] const Picture& alternateImage() const { return m_alternateImage; }
    void setAlternateImage(const Picture& image);
    /// The picture of that name, and beside it its form for the mouse inside, whose name ends in "_hoover".
    void setImageNamed(const QString& name);
    [[nodiscard]] QString imageName() const { return image().name(); }
    /// The background while the mouse is inside; NoRole: the ordinary one stays.
    void setAlternateBackgroundRole(QPalette::ColorRole role);

protected:
    [[nodiscard]] ButtonState state() const override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    Picture m_alternateImage;
    QPalette::ColorRole m_alternateBackgroundRole = QPalette::NoRole;
    QPalette::ColorRole m_textColorTmp = QPalette::NoRole;
    bool m_isHovered = false;
};
