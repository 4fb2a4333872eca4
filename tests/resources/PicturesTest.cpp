#include "platform/Bundle.h"
#include "resources/Resources.h"

#include <QDir>
#include <QSvgRenderer>

#include <gtest/gtest.h>

TEST(Pictures, everyPictureIsReadable)
{
    initResources();
    const QStringList names = QDir(QStringLiteral(":/images")).entryList();
    EXPECT_GE(names.size(), 32);
    for (const QString& name : names)
        EXPECT_TRUE(QSvgRenderer(QStringLiteral(":/images/") + name).isValid()) << qPrintable(name);
}
