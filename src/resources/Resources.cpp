#include "resources/Resources.h"

#include "platform/Log.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

const QString kEnglish = QStringLiteral("en");

QString textsPath(const QString& language)
{
    return QStringLiteral(":/strings/StandUp_%1.qm").arg(language);
}

/// The language part of "de_AT", "de-AT" and "de_DE.UTF-8@euro".
QString languageOf(const QString& code)
{
    static const QString kSeparators = QStringLiteral("_-.@");
    qsizetype length = 0;
    while (length < code.size() && !kSeparators.contains(code.at(length)))
        ++length;
    return code.left(length).toLower();
}

const QString kTranslatorName = QStringLiteral("zelvoTexts");

void removeTexts(QCoreApplication& application)
{
    const auto translators =
        application.findChildren<QTranslator*>(kTranslatorName, Qt::FindDirectChildrenOnly);
    qDeleteAll(translators);
}

bool addTranslator(QCoreApplication& application, const QString& path)
{
    auto* translator = new QTranslator(&application);
    translator->setObjectName(kTranslatorName);
    if (translator->load(path) && QCoreApplication::installTranslator(translator))
        return true;
    delete translator;
    return false;
}

/// Qt's own dialogs speak the language too, where the system has Qt's translations.
void addQtTexts(QCoreApplication& application, const QString& language)
{
    const QString path =
        QStringLiteral("%1/qtbase_%2.qm").arg(QLibraryInfo::path(QLibraryInfo::TranslationsPath), language);
    if (QFile::exists(path))
        addTranslator(application, path);
}

}

// Q_INIT_RESOURCE declares functions and therefore must stand outside every namespace.
void initResources()
{
    Q_INIT_RESOURCE(bundle);
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(strings);
}

QString firstAvailableLanguage(const QStringList& codes)
{
    for (const QString& code : codes) {
        QString language = languageOf(code);
        if (!language.isEmpty() && QFile::exists(textsPath(language)))
            return language;
    }
    return {};
}

bool installTexts(QCoreApplication& application, const QString& languageCode)
{
    const bool own = languageCode.isEmpty();
    const QString language =
        firstAvailableLanguage(own ? QLocale::system().uiLanguages() : QStringList {languageCode});
    const bool known = own || !language.isEmpty();
    if (!known)
        Log::line(QStringLiteral("There are no texts in the language \"%1\"; they are shown in English.")
                      .arg(languageCode));

    removeTexts(application);
    if (!addTranslator(application, textsPath(kEnglish)))
        Log::line(QStringLiteral("The program's English texts cannot be read."));
    if (!language.isEmpty() && language != kEnglish) {
        addQtTexts(application, language);
        addTranslator(application, textsPath(language));
    }
    return known;
}
