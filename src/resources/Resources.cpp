#include "resources/Resources.h"

#include "platform/Log.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QTranslator>

namespace {

const QString kEnglish = QStringLiteral("en");

QString textsPath(const QString& language)
{
    return QStringLiteral(":/strings/StandUp_%1.qm").arg(language);
}

/// What Qt itself says in its dialogs, so that nobody needs the translations of all of Qt for that.
QString qtTextsPath(const QString& language)
{
    return QStringLiteral(":/strings/Qt_%1.qm").arg(language);
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

}

// Q_INIT_RESOURCE declares functions and therefore must stand outside every namespace.
void initResources()
{
    Q_INIT_RESOURCE(bundle);
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(status);
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
        addTranslator(application, qtTextsPath(language));
        addTranslator(application, textsPath(language));
    }
    return known;
}
