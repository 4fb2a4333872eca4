#include "platform/Bundle.h"
#include "resources/Resources.h"
#include "resources/SourceLiterals.h"

#include <QCoreApplication>
#include <QFile>
#include <QFontMetrics>
#include <QMap>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

using Texts = QMap<QString, QString>;

const QStringList kLanguages = {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("fr"),
    QStringLiteral("es"), QStringLiteral("nl")};

/// The keys whose texts take values, with the placeholders that every language must hold. The texts of all
/// other keys are shown as they are.
const QMap<QString, QStringList> kPlaceholders = {
    {QStringLiteral("ExportFileName"), {QStringLiteral("%1")}},
    {QStringLiteral("NotificationDetailMessage1"), {QStringLiteral("%1")}},
    {QStringLiteral("NotificationDetailMessage2"), {QStringLiteral("%1")}},
    {QStringLiteral("NotificationSittingmemory"), {QStringLiteral("%1")}},
    {QStringLiteral("SliderText"), {QStringLiteral("%1")}},
    {QStringLiteral("YourMonthlyStats"), {QStringLiteral("%1")}},
    {QStringLiteral("YourYearlyStats"), {QStringLiteral("%1")}},
    {QStringLiteral("Expected a folder to store application data, found a file (%1)."),
        {QStringLiteral("%1")}},
    {QStringLiteral("DataFolderError"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreDamaged"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreDiskFull"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreInUse"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreNotWritable"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreUnreadable"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreNotAFile"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreMissingBesideLog"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreTooNew"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreForeign"), {QStringLiteral("%1")}},
    {QStringLiteral("StoreGone"), {QStringLiteral("%1")}},
};

Texts readTexts(const QString& language)
{
    QFile file(QStringLiteral(ZELVO_SOURCE_DIR "/resources/strings/StandUp_%1.ts").arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
    Texts texts;
    QString key;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == u"message")
            key = reader.attributes().value(QStringLiteral("id")).toString();
        if (reader.name() != u"translation")
            continue;
        EXPECT_TRUE(reader.attributes().isEmpty()) << "unfinished: " << qPrintable(key);
        EXPECT_FALSE(texts.contains(key)) << "twice: " << qPrintable(key);
        texts.insert(key, reader.readElementText());
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return texts;
}

const Texts& textsIn(const QString& language)
{
    static const QMap<QString, Texts> tables = [] {
        QMap<QString, Texts> read;
        for (const QString& each : kLanguages)
            read.insert(each, readTexts(each));
        return read;
    }();
    return *tables.constFind(language);
}

/// Calls check(language, key, text) for every text there is.
template <typename Check>
void forEveryText(Check check)
{
    for (const QString& language : kLanguages) {
        const Texts& texts = textsIn(language);
        for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
            SCOPED_TRACE(qPrintable(QStringLiteral("%1 %2: %3").arg(language, it.key(), it.value())));
            check(language, it.key(), it.value());
        }
    }
}

QStringList placeholdersOf(const QString& text)
{
    static const QRegularExpression kPlaceholder(QStringLiteral("%[0-9]+|%[^ ]"));
    QStringList found;
    for (auto match = kPlaceholder.globalMatch(text); match.hasNext();)
        found.append(match.next().captured());
    found.sort();
    return found;
}

/// A key may be spelled out in the code or be put together from a literal and a number.
bool isNamedInTheCode(const QString& key)
{
    static const QRegularExpression kNumber(QStringLiteral("[0-9]+$"));
    const QString stem = QString(key).remove(kNumber);
    const QSet<QString>& literals = SourceLiterals::all();
    return literals.contains(key)
        || (stem != key && (literals.contains(stem) || literals.contains(stem + QStringLiteral("%1"))));
}

int widthOf(const QString& text, int pixelSize, QFont::Weight weight)
{
    QFont font(QStringLiteral("Open Sans"));
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return QFontMetrics(font).horizontalAdvance(text);
}

bool install(const QString& code)
{
    initResources();
    return installTexts(*QCoreApplication::instance(), code);
}

QString shown(const QString& key)
{
    return Bundle(QJsonObject()).localizedString(key);
}

}

TEST(Texts, everyLanguageHasEveryKey)
{
    for (const QString& language : kLanguages)
        EXPECT_EQ(textsIn(language).keys(), textsIn(kLanguages.first()).keys()) << qPrintable(language);
}

TEST(Texts, noTextIsEmptyOrHasStraySpace)
{
    forEveryText([](const QString&, const QString& key, QString text) {
        // The heading of the error lines ends its line itself.
        if (key == QStringLiteral("Error \n")) {
            EXPECT_TRUE(text.endsWith(u'\n'));
            text.chop(1);
        }
        EXPECT_FALSE(text.isEmpty());
        EXPECT_EQ(text.toStdString(), text.trimmed().toStdString());
        EXPECT_FALSE(text.contains(QStringLiteral("  ")));
    });
}

TEST(Texts, placeholdersAreThoseThatTheCodeFills)
{
    for (auto it = kPlaceholders.cbegin(); it != kPlaceholders.cend(); ++it)
        EXPECT_TRUE(textsIn(kLanguages.first()).contains(it.key())) << qPrintable(it.key());
    forEveryText([](const QString&, const QString& key, const QString& text) {
        EXPECT_EQ(
            placeholdersOf(text).join(u' ').toStdString(), kPlaceholders.value(key).join(u' ').toStdString());
    });
}

TEST(Texts, theProgramShowsWhatTheTablesSay)
{
    for (const QString& language : kLanguages) {
        ASSERT_TRUE(install(language));
        const Texts& texts = textsIn(language);
        for (auto it = texts.cbegin(); it != texts.cend(); ++it)
            EXPECT_EQ(shown(it.key()).toStdString(), it.value().toStdString()) << qPrintable(language);
    }
    install(QStringLiteral("en"));
}

TEST(Texts, everyKeyInTheCodeHasAText)
{
    const QStringList keys = SourceLiterals::argumentsOf({QStringLiteral("localizedString"),
        QStringLiteral("localized"), QStringLiteral("localizedText"), QStringLiteral("qtTrId")});
    const Texts& texts = textsIn(kLanguages.first());
    for (const QString& key : keys)
        EXPECT_TRUE(texts.contains(key) || texts.contains(key + QStringLiteral("1"))) << qPrintable(key);
    // A reader that finds nothing would find no fault either.
    EXPECT_TRUE(SourceLiterals::all().contains(QStringLiteral("OverloadUpError")));

    // Keys that reach the look-up through a table are known by their family.
    static const QRegularExpression kFamilies(
        QStringLiteral("^(Access|ContextMenu|TrayTooltip)[A-Z][A-Za-z]+$"));
    for (const QString& literal : SourceLiterals::all())
        EXPECT_TRUE(texts.contains(literal) || !kFamilies.match(literal).hasMatch()) << qPrintable(literal);
}

TEST(Texts, noTextIsLeftOver)
{
    const QStringList keys = textsIn(kLanguages.first()).keys();
    for (const QString& key : keys)
        EXPECT_TRUE(isNamedInTheCode(key)) << qPrintable(key);
}

TEST(Texts, theTenHeadlinesOfAReminderDifferAndFitItsWidth)
{
    constexpr int kWidth = 330;
    for (const QString& language : kLanguages) {
        for (const char* list : {"StandingMessage", "SittingMessage"}) {
            QSet<QString> headlines;
            for (int number = 1; number <= 10; ++number) {
                const QString key = QString::fromLatin1(list) + QString::number(number);
                const QString text = textsIn(language).value(key);
                headlines.insert(text);
                EXPECT_LE(widthOf(text, 18, QFont::Normal), kWidth) << qPrintable(language + u' ' + text);
            }
            EXPECT_EQ(headlines.size(), 10) << qPrintable(language) << ' ' << list;
        }
    }
}

TEST(Texts, aButtonsTextFitsASmallButton)
{
    constexpr int kWidth = 78;
    for (const QString& language : kLanguages)
        for (const char* key : {"SnoozeButton", "SkipButton", "UpButton", "DownButton", "Memory1", "Memory2",
                 "Memory3", "HistoryButton", "SettingsButton"}) {
            const QString text = textsIn(language).value(QString::fromLatin1(key));
            EXPECT_LE(widthOf(text, 12, QFont::Light), kWidth) << qPrintable(language + u' ' + text);
        }
}

TEST(Texts, typographyIsThatOfTheLanguage)
{
    const struct {
        const char* languages;
        const char* mustNotHold;
        const char* because;
    } kRules[] = {
        {"en de fr es nl", "['\"]", "quotes and apostrophes are typographic"},
        {"en de fr es nl", "\\.\\.\\.", "an ellipsis is one character"},
        {"en de fr es nl", "%\\d (?i:min|kcal)", "a number stays on the line of its unit"},
        {"fr", "[^\\x{a0}][!?;:»]|«[^\\x{a0}]", "high punctuation has a no-break space"},
        {"es", "^[^¿]*\\?|^[^¡]*!", "questions and exclamations are opened"},
        {"de", "\\b(du|di[rc]h?|dein\\w*|Sie|Ihr\\w*|Ihnen)\\b", "nobody is addressed"},
        {"fr", "(?i)\\b(tu|toi|ton|ta|tes|vous|votre|vos)\\b", "nobody is addressed"},
        {"es", "(?i)\\b(tú|tus?|ti|usted|sus?)\\b", "nobody is addressed"},
        {"nl", "(?i)\\b(je|jij|jouw|u|uw)\\b", "nobody is addressed"},
    };
    forEveryText([&](const QString& language, const QString&, const QString& text) {
        for (const auto& rule : kRules) {
            const QRegularExpression pattern(
                QString::fromUtf8(rule.mustNotHold), QRegularExpression::UseUnicodePropertiesOption);
            ASSERT_TRUE(pattern.isValid()) << rule.mustNotHold;
            const bool applies = QString::fromLatin1(rule.languages).split(u' ').contains(language);
            EXPECT_FALSE(applies && pattern.match(text).hasMatch()) << rule.because;
        }
    });
}

TEST(Texts, theLanguageAskedForIsShown)
{
    const struct {
        const char* code;
        bool known;
        const char* cancel;
    } kTestCases[] = {
        {"en", true, "Cancel"},
        {"de", true, "Abbrechen"},
        {"fr", true, "Annuler"},
        {"es", true, "Cancelar"},
        {"nl", true, "Annuleren"},
        {"de_AT", true, "Abbrechen"},
        {"fr-CA", true, "Annuler"},
        {"nl_BE.UTF-8@euro", true, "Annuleren"},
        {"DE", true, "Abbrechen"},
        {"en_GB", true, "Cancel"},
        {"xx", false, "Cancel"},
        {"den", false, "Cancel"},
        {"_de", false, "Cancel"},
        {"../de", false, "Cancel"},
    };
    for (const auto& testCase : kTestCases) {
        SCOPED_TRACE(testCase.code);
        EXPECT_EQ(install(QString::fromUtf8(testCase.code)), testCase.known);
        EXPECT_EQ(shown(QStringLiteral("Cancel")), QString::fromUtf8(testCase.cancel));
    }
}

TEST(Texts, theUsersLanguagesAreTriedInTheirOrder)
{
    initResources();
    const struct {
        const char* codes;
        const char* language;
    } kTestCases[] = {
        {"nl nl-Latn-NL nl-NL de", "nl"},
        {"pt pt-PT es de", "es"},
        {"en-GB de", "en"},
        {"C", ""},
        {"", ""},
    };
    for (const auto& testCase : kTestCases)
        EXPECT_EQ(firstAvailableLanguage(QString::fromLatin1(testCase.codes).split(u' ')),
            QLatin1String(testCase.language))
            << testCase.codes;
    // The tests run in the C locale, which has no language of its own.
    EXPECT_TRUE(install(QString()));
    EXPECT_EQ(shown(QStringLiteral("Cancel")), QStringLiteral("Cancel"));
}

TEST(Texts, changingTheLanguageLeavesNoTableBehind)
{
    for (int round = 0; round < 3; ++round) {
        install(QStringLiteral("de"));
        install(QStringLiteral("fr"));
    }
    EXPECT_LE(QCoreApplication::instance()->findChildren<QTranslator*>().size(), 3);
    install(QStringLiteral("en"));
    EXPECT_EQ(QCoreApplication::instance()->findChildren<QTranslator*>().size(), 1);
}
