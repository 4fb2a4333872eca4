#include "ui/ScrollingBody.h"

#include "ui/Palette.h"

#include <QApplication>
#include <QProxyStyle>
#include <QScrollBar>

namespace {
constexpr int kLeastHeight = 80;
constexpr int kRoomAroundFocus = 40;
constexpr int kBarWidth = 10;

class OverlaidBarStyle final : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_ScrollView_ScrollBarOverlap ? kBarWidth
                                                        : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

QString barLook()
{
    return QStringLiteral(
        "QScrollBar { background: transparent; width: %1px; }"
        "QScrollBar::handle { background: %2; border-radius: 3px; margin: 2px; min-height: 32px; }"
        "QScrollBar::handle:hover { background: %3; }"
        "QScrollBar::handle:disabled { background: transparent; }"
        "QScrollBar::add-line, QScrollBar::sub-line { height: 0; }"
        "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(QString::number(kBarWidth), zelvoMarkColor().name(), zelvoHoverColor().name());
}
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
    verticalScrollBar()->setStyleSheet(barLook());
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

void ScrollingBody::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        verticalScrollBar()->setStyleSheet(barLook()); // A style sheet knows the application's palette alone.
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
