#include "platform/Bundle.h"
#include "resources/Contrast.h"
#include "resources/Resources.h"
#include "resources/SourceLiterals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

namespace {

const QString kHover = QStringLiteral("_hoover");

struct Pictures : testing::Test {
    Pictures() { initResources(); }
};

QStringList pictureNames()
{
    QStringList names;
    const QStringList files = QDir(QStringLiteral(":/images")).entryList();
    for (const QString& file : files)
        names.append(QFileInfo(file).completeBaseName());
    return names;
}

QString svgOf(const QString& name)
{
    QFile file(Bundle::imagePath(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QColor brandColour()
{
    return QColor(Bundle(Bundle::compiledInformation()).stringValue(QStringLiteral("ZelvoColor1")).value());
}

void draw(QPainter& painter, const QString& name)
{
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer(Bundle::imagePath(name)).render(&painter, QRectF(painter.viewport()));
}

QImage render(const QString& name, QSize size, const QColor& background = Qt::transparent)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(background);
    QPainter painter(&image);
    draw(painter, name);
    return image;
}

QImage render(const char* name, int size, const QColor& background = Qt::transparent)
{
    return render(QString::fromLatin1(name), QSize(size, size), background);
}

/// The share of the picture that is painted, 0 to 1.
double coverage(const QImage& image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    return sum / (image.width() * image.height());
}

/// A progress circle as its view paints it: white disc, pie of the percentage, ring.
QImage progressCircle(const char* ring, int side, int percent)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(QStringLiteral("#ECECEC")));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QRectF pie = QRectF(0, 0, side, side).adjusted(3, 3, -3, -3);
    painter.setBrush(Qt::white);
    painter.drawEllipse(pie);
    painter.setBrush(brandColour());
    painter.drawPie(pie, 90 * 16, -percent * 360 * 16 / 100);
    draw(painter, QString::fromLatin1(ring));
    return image;
}

}

TEST_F(Pictures, everyPictureShowsSomethingAtEverySize)
{
    const QStringList names = pictureNames();
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        SCOPED_TRACE(qPrintable(name));
        const QSvgRenderer renderer(Bundle::imagePath(name));
        ASSERT_TRUE(renderer.isValid());
        const QSize natural = renderer.defaultSize();
        for (const QSize size :
            {natural, natural * 2, natural.scaled(16, 16, Qt::KeepAspectRatioByExpanding)})
            EXPECT_GT(coverage(render(name, size)), 0.04);
    }
}

TEST_F(Pictures, everyPictureInTheCodeExists)
{
    const QStringList names = SourceLiterals::argumentsOf({QStringLiteral("imagePath"),
        QStringLiteral("Picture"), QStringLiteral("setImageNamed"), QStringLiteral("m_image\\w*")});
    for (const QString& name : names)
        EXPECT_TRUE(QFile::exists(Bundle::imagePath(name))) << qPrintable(name);
}

TEST_F(Pictures, noPictureIsLeftOver)
{
    const QSet<QString>& literals = SourceLiterals::all();
    const QStringList names = pictureNames();
    for (const QString& name : names) {
        const QString plain = QString(name).remove(kHover);
        EXPECT_TRUE(literals.contains(name) || literals.contains(plain)) << qPrintable(name);
    }
}

TEST_F(Pictures, aHoverFormIsItsPictureInTheBrandColour)
{
    int pairs = 0;
    const QStringList names = pictureNames();
    for (const QString& name : names) {
        if (!name.endsWith(kHover))
            continue;
        ++pairs;
        QString plain = svgOf(QString(name).remove(kHover));
        const QString brand = brandColour().name().toUpper();
        EXPECT_EQ(svgOf(name), plain.replace(QStringLiteral("#616161"), brand)) << qPrintable(name);
    }
    EXPECT_EQ(pairs, 10);
}

TEST_F(Pictures, theTrayIconIsLegibleOnLightAndDarkPanels)
{
    for (const char* name : {"StatusItemIcon", "StatusItemIconDisconnected"})
        for (const char* panel : {"#FFFFFF", "#2B2B2B", "#101418"})
            for (const int size : {16, 22, 32, 64}) {
                const QColor background(QLatin1String {panel});
                const QImage image = render(name, size, background);
                int distinct = 0;
                for (int y = 0; y < size; ++y)
                    for (int x = 0; x < size; ++x)
                        distinct += contrast(image.pixelColor(x, y), background) >= 2.5;
                EXPECT_GT(distinct, size * size * 15 / 100) << name << ' ' << panel << ' ' << size;
            }
}

TEST_F(Pictures, theTrayIconTellsItsStateWithoutColour)
{
    for (const int size : {16, 22, 64})
        EXPECT_GT(coverage(render("StatusItemIcon", size)),
            1.8 * coverage(render("StatusItemIconDisconnected", size)));
}

TEST_F(Pictures, textIsReadableOnThePicturesThatCarryIt)
{
    const QColor text(QStringLiteral("#616161"));
    for (const char* name : {"GoalCircle", "GoalCircleHover", "GoalCircleActive", "NotificationRadial"})
        EXPECT_GE(contrast(render(name, 60).pixelColor(30, 30), text), 4.5) << name;
    EXPECT_GE(contrast(render("SetupTextField", 60).pixelColor(30, 30), Qt::white), 4.5);
    EXPECT_GE(contrast(progressCircle("RadialProgressBorder", 180, 100).pixelColor(90, 100), Qt::black), 7);
}

TEST_F(Pictures, theGoalCirclesStatesDiffer)
{
    const QImage plain = render("GoalCircle", 60);
    const QImage hover = render("GoalCircleHover", 60);
    const QImage active = render("GoalCircleActive", 60);
    EXPECT_NE(plain, hover);
    EXPECT_NE(hover, active);
    // The chosen goal is told by the weight of its ring too, not by colour alone.
    constexpr int kInsideThePlainRing = 2;
    EXPECT_EQ(active.pixelColor(kInsideThePlainRing, 30), brandColour());
    EXPECT_NE(hover.pixelColor(kInsideThePlainRing, 30), brandColour());
}

TEST_F(Pictures, aRingFramesThePieAndLeavesItsBandInFullColour)
{
    const struct {
        const char* ring;
        int side;
    } kTestCases[] = {{"SmallRadialProgressBorder", 60}, {"SmallRadialProgressBorder", 100},
        {"RadialProgressBorder", 106}, {"RadialProgressBorder", 180}, {"RadialProgressBorder", 240}};
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testing::Message() << testCase.ring << ' ' << testCase.side);
        const QImage image = progressCircle(testCase.ring, testCase.side, 50);
        const int middle = testCase.side / 2;
        const int radius = middle - 3;
        // On the line from the centre to three o'clock, where the pie is, and to nine o'clock, where it is
        // not.
        EXPECT_EQ(image.pixelColor(middle + radius * 88 / 100, middle), brandColour());
        EXPECT_EQ(image.pixelColor(middle - radius * 88 / 100, middle), QColor(Qt::white));
        // The edge of the pie is covered by the ring.
        EXPECT_LT(
            contrast(image.pixelColor(middle + radius, middle), QColor(QStringLiteral("#C3CDD0"))), 1.05);
        EXPECT_LT(
            contrast(image.pixelColor(middle - radius - 1, middle), QColor(QStringLiteral("#C3CDD0"))), 1.05);
    }
}
