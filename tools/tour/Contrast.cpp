#include "Contrast.h"

#include "ui/Button.h"
#include "ui/Palette.h"

#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTextStream>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {
/// Single pixels are where strokes cross.
constexpr size_t kLeastPixels = 3;
constexpr QMargins kEdges {2, 2, 2, 2};

QString shownText(const QWidget& widget)
{
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* const button = qobject_cast<const Button*>(&widget))
        return button->toolButtonStyle() == Qt::ToolButtonIconOnly ? QString() : button->text();
    if (const auto* const field = qobject_cast<const QLineEdit*>(&widget))
        return field->text();
    return {};
}

/// The window's texts without the buttons' pictures, which may stand out more.
QImage texts(QWidget& window)
{
    const QList<Button*> buttons = window.findChildren<Button*>();
    std::vector<Picture> pictures;
    std::transform(buttons.cbegin(), buttons.cend(), std::back_inserter(pictures),
        [](const Button* button) { return button->image(); });
    std::for_each(buttons.cbegin(), buttons.cend(), [](Button* button) { button->setImage({}); });
    QImage image(window.size(), QImage::Format_RGB32);
    window.render(&image);
    for (qsizetype i = 0; i < buttons.size(); ++i)
        buttons[i]->setImage(pictures[size_t(i)]);
    return image;
}

double contrastIn(const QImage& part)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < part.height(); ++y)
        for (int x = 0; x < part.width(); ++x)
            ++counts[part.pixel(x, y)];
    const auto ground = std::max_element(counts.cbegin(), counts.cend());
    std::vector<double> contrasts;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color)
        contrasts.insert(contrasts.end(), size_t(*color), contrast(color.key(), ground.key()));
    std::sort(contrasts.rbegin(), contrasts.rend());
    return contrasts.size() < kLeastPixels ? 1 : contrasts[kLeastPixels - 1];
}
}

QString measuredContrasts(QWidget& window, const QString& picture)
{
    const QImage image = texts(window);
    QString lines;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || !widget->isEnabled() || shownText(*widget).trimmed().isEmpty())
            continue;
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        const QWidget* const above = window.childAt(place.center());
        if (above && !above->isAncestorOf(widget) && above != widget && !widget->isAncestorOf(above))
            continue; // An error line lies over it.
        const double contrast = contrastIn(image.copy(place.marginsRemoved(kEdges)));
        QTextStream(&lines) << picture << '\t' << widget->objectName() << '\t' << contrast << '\n';
    }
    return lines;
}
