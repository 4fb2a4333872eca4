#include "screens/GoalCircleView.h"

#include "screens/CircleAccessibility.h"
#include "screens/CircleLabels.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int kUsualSide = 60;
constexpr double kFocusInset = 5; // Inside the picture's own rings, which say other things.
}

GoalCircleView::GoalCircleView(QWidget* parent)
    : QWidget(parent)
    , m_image(QStringLiteral("GoalCircle"))
    , m_imageHover(QStringLiteral("GoalCircleHover"))
    , m_imageActive(QStringLiteral("GoalCircleActive"))
{
    installCircleAccessibility();
    // A click leaves the focus where nothing is edited; only Tab brings it here.
    setFocusPolicy(Qt::TabFocus);
    createControls();
}

void GoalCircleView::createControls()
{
    m_textFieldTitle = createCircleLabel(*this, zelvoTextColor());
    m_textFieldTitle->setFont(FontAndTextHandler::Light7());
    m_textFieldValue = createCircleLabel(*this, zelvoTextColor());
    m_textFieldValue->setFont(FontAndTextHandler::Roman18());
    addConstraints();
}

void GoalCircleView::setValue(const std::optional<QString>& value)
{
    m_value = value;
    addConstraints();
}

void GoalCircleView::setTitle(const std::optional<QString>& title)
{
    m_title = title;
    addConstraints();
}

void GoalCircleView::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    update();
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void GoalCircleView::setVerticalOffset(double offset)
{
    m_verticalOffset = offset;
    addConstraints();
}

void GoalCircleView::setHover(bool hover)
{
    m_hover = hover;
    update();
}

void GoalCircleView::click()
{
    QWidget* focused = window()->focusWidget();
    if (focused && focused != this)
        focused->clearFocus();
    if (m_delegate)
        m_delegate->goalCircleIndicatorViewClicked(*this);
}

QSize GoalCircleView::sizeHint() const
{
    return m_image.isNull() ? QSize(kUsualSide, kUsualSide) : m_image.size().toSize();
}

void GoalCircleView::addConstraints()
{
    if (m_value)
        setCircleLabelText(*m_textFieldValue, *m_value);
    if (m_title)
        setCircleLabelText(*m_textFieldTitle, *m_title);
    layOutCircleLabels(*m_textFieldValue, *m_textFieldTitle, -m_verticalOffset, 0);
}

void GoalCircleView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Picture& picture = m_active ? m_imageActive : m_hover ? m_imageHover : m_image;
    picture.draw(painter, rect());
    if (!m_focusMark.isVisible())
        return;
    const QRectF ring = QRectF(rect()).adjusted(kFocusInset, kFocusInset, -kFocusInset, -kFocusInset);
    paintFocusMark(painter, ring, std::min(ring.width(), ring.height()) / 2);
}

void GoalCircleView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    addConstraints();
}

void GoalCircleView::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    setHover(true);
}

void GoalCircleView::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    setHover(false);
}

void GoalCircleView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        click();
    else
        event->ignore();
}

void GoalCircleView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter)
        QWidget::keyPressEvent(event);
    else if (!m_keyRepeat.isRepetition(*event))
        click();
}

void GoalCircleView::keyReleaseEvent(QKeyEvent* event)
{
    m_keyRepeat.released(*event);
    QWidget::keyReleaseEvent(event);
}
