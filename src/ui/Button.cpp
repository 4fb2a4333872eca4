#include "ui/Button.h"

#include "ui/Accessibility.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace {
constexpr quint64 kQuickClick = 200; // ms; nobody thinks better of a press that soon.
}

Button::Button(QWidget* parent)
    : QPushButton(parent)
{
    installControlAccessibility();
    setFocusPolicy(Qt::StrongFocus);
}

void Button::setTextRole(QPalette::ColorRole role)
{
    m_textRole = role;
    update();
}

void Button::setUnderLineText()
{
    m_isUnderlined = true;
    update();
}

void Button::removeUnderLineText()
{
    m_isUnderlined = false;
    update();
}

void Button::setImage(const Picture& image)
{
    if (m_image == image)
        return;
    m_image = image;
    updateGeometry();
    update();
}

void Button::setToolButtonStyle(Qt::ToolButtonStyle style)
{
    m_toolButtonStyle = style;
    updateGeometry();
    update();
}

QColor Button::backgroundColor() const
{
    return isFlat() ? QColor() : palette().color(backgroundRole());
}

void Button::onClicked(std::function<void()> callback)
{
    connect(this, &QPushButton::clicked, this, std::move(callback));
}

QSize Button::sizeHint() const
{
    return buttonSizeHint(state());
}

QSize Button::minimumSizeHint() const
{
    // Room for the picture and the beginning of the title; the rest may go into an ellipsis.
    ButtonState shortened = state();
    const QString beginning = shortened.title.trimmed().left(3) + QChar(0x2026);
    if (beginning.size() < shortened.title.size())
        shortened.title = beginning;
    return buttonSizeHint(shortened).boundedTo(sizeHint());
}

ButtonState Button::state() const
{
    return {
        .title = text(),
        .font = font(),
        .textColor = textColor(),
        .backgroundColor = backgroundColor(),
        .image = m_image,
        .toolButtonStyle = m_toolButtonStyle,
        .direction = layoutDirection(),
        .isUnderlined = m_isUnderlined,
        .isPressed = isDown(),
        .isEnabled = isEnabled(),
        .showsFocus = showsFocus(),
    };
}

void Button::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintButton(painter, rect(), state());
}

void Button::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isOurs = isReturn || event->key() == Qt::Key_Space;
    if (isOurs && m_keyRepeat.isRepetition(*event))
        return;
    if (isReturn)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void Button::keyReleaseEvent(QKeyEvent* event)
{
    m_keyRepeat.released(*event);
    QPushButton::keyReleaseEvent(event);
}

void Button::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_pressedAt = event->timestamp();
    QPushButton::mousePressEvent(event);
}

void Button::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    const auto pressedAt = isLeft ? std::exchange(m_pressedAt, {}) : std::nullopt;
    const bool isQuick = pressedAt && event->timestamp() < *pressedAt + kQuickClick;
    if (!isQuick || hitButton(event->position().toPoint())) {
        QPushButton::mouseReleaseEvent(event);
        return;
    }
    // An X server that holds a click back for a slow window manager reports its release where the pointer is
    // by then.
    event->accept();
    click();
}

bool Button::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}
