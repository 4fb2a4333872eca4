#include "screens/GoalCircleView.h"

#include "ui/FontAndTextHandler.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr double kFocusInset = 5; // Inside the picture's own rings, which say other things.
}

GoalCircleView::GoalCircleView(QWidget* parent)
    : CircleView(QPalette::WindowText, parent)
    , m_image(QStringLiteral("GoalCircle"))
    , m_imageHover(QStringLiteral("GoalCircleHover"))
    , m_imageActive(QStringLiteral("GoalCircleActive"))
{
    textFieldTitle()->setFont(FontAndTextHandler::Light7());
    textFieldValue()->setFont(FontAndTextHandler::Roman18());
    setAttribute(Qt::WA_Hover); // Paints it anew when the mouse comes and goes.
    // A click leaves the focus where nothing is edited; only Tab brings it here.
    setFocusPolicy(Qt::TabFocus);
}

void GoalCircleView::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    update();
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void GoalCircleView::click()
{
    QWidget* focused = window()->focusWidget();
    if (focused && focused != this)
        focused->clearFocus();
    if (m_delegate)
        m_delegate->goalCircleIndicatorViewClicked(*this);
}

void GoalCircleView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Picture& picture = m_active ? m_imageActive : hover() ? m_imageHover : m_image;
    picture.draw(painter, rect());
    if (!m_focusMark.isVisible())
        return;
    const QRectF ring = QRectF(rect()).adjusted(kFocusInset, kFocusInset, -kFocusInset, -kFocusInset);
    paintFocusMark(painter, ring, std::min(ring.width(), ring.height()) / 2);
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
        CircleView::keyPressEvent(event);
    else if (!m_keyRepeat.isRepetition(*event))
        click();
}

void GoalCircleView::keyReleaseEvent(QKeyEvent* event)
{
    m_keyRepeat.released(*event);
    CircleView::keyReleaseEvent(event);
}
