#include "ui/ScrollingBody.h"

#include "ui/Palette.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOption>

#include <algorithm>

namespace {
constexpr int kLeastHeight = 80;
constexpr int kRoomAroundFocus = 40;
constexpr int kBarWidth = 10;
constexpr int kLeastHandle = 32;
constexpr int kAround = 2; ///< the handle
constexpr int kRadius = 3;

/// A handle without a groove or arrows. (A style sheet that says the same costs more than the rest of a
/// window.)
class OverlaidBarStyle final : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        const bool isWidth = metric == PM_ScrollView_ScrollBarOverlap || metric == PM_ScrollBarExtent;
        return isWidth ? kBarWidth : QProxyStyle::pixelMetric(metric, option, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
        const QWidget* widget) const override
    {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_ScrollBar || !bar)
            return QProxyStyle::subControlRect(control, option, part, widget);
        const QRect all = bar->rect;
        const int range = bar->maximum - bar->minimum;
        const int share = all.height() * bar->pageStep / std::max(1, range + bar->pageStep);
        const int length = std::min(std::max(share, kLeastHandle), all.height());
        const int top = all.top()
            + sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, all.height() - length);
        switch (part) {
        case SC_ScrollBarSlider:
            return {all.left(), top, all.width(), length};
        case SC_ScrollBarSubPage:
            return {all.left(), all.top(), all.width(), top - all.top()};
        case SC_ScrollBarAddPage:
            return {all.left(), top + length, all.width(), all.height() - (top - all.top()) - length};
        default:
            return part == SC_ScrollBarGroove ? all : QRect();
        }
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override
    {
        if (control != CC_ScrollBar)
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (!option->state.testFlag(State_Enabled))
            return;
        const bool isUnderMouse =
            option->state.testFlag(State_MouseOver) && option->activeSubControls == SC_ScrollBarSlider;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(isUnderMouse ? zelvoHoverColor() : zelvoMarkColor());
        const QRect handle = subControlRect(control, option, SC_ScrollBarSlider, widget);
        painter->drawRoundedRect(handle.adjusted(kAround, kAround, -kAround, -kAround), kRadius, kRadius);
    }
};
}

ScrollingBody::ScrollingBody(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const style = new OverlaidBarStyle;
    style->setParent(verticalScrollBar());
    verticalScrollBar()->setStyle(style);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &ScrollingBody::markEdges);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ScrollingBody::markEdges);
    markEdges();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

ScrollingBody::~ScrollingBody()
{
    disconnect(qApp, nullptr, this, nullptr); // The focus still moves while the controls inside end.
}

QSize ScrollingBody::sizeHint() const
{
    return widget() ? widget()->sizeHint() : QScrollArea::sizeHint();
}

QSize ScrollingBody::minimumSizeHint() const
{
    return widget() ? QSize(widget()->minimumSizeHint().width(), kLeastHeight)
                    : QScrollArea::minimumSizeHint();
}

void ScrollingBody::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    m_above.setGeometry(0, 0, width(), 1);
    m_below.setGeometry(0, height() - 1, width(), 1);
}

void ScrollingBody::markEdges()
{
    QScrollBar& bar = *verticalScrollBar();
    bar.setEnabled(bar.minimum() < bar.maximum()); // Qt takes an idle bar away a moment too late.
    m_above.setVisible(bar.value() > bar.minimum());
    m_below.setVisible(bar.value() < bar.maximum());
}

void ScrollingBody::follow(QWidget* focused)
{
    // What is under a pressed mouse button must not move away from it.
    // Nor is more seen of what is taller than the view.
    if (focused && isAncestorOf(focused) && focused->height() <= viewport()->height()
        && QGuiApplication::mouseButtons() == Qt::NoButton)
        ensureWidgetVisible(focused, 0, kRoomAroundFocus);
}
