#pragma once

#include <QString>
#include <QStringList>

class QCoreApplication;

/// Makes the compiled-in files known: `:/Info.json`, `:/images/NAME.svg`, `:/strings/StandUp_LANGUAGE.qm`,
/// `:/strings/Qt_LANGUAGE.qm`. A static library's files are invisible until this is called; calling it again
/// does nothing.
void initResources();

/// The first of the languages that has texts, as the two letters of its table; empty when none has. Codes may
/// carry a country and more: "de", "de_AT", "de-AT", "de_DE.UTF-8@euro".
QString firstAvailableLanguage(const QStringList& codes);

/// Puts the texts of a language into the application, in place of those of an earlier call. English lies
/// below every other language, so that a key without a text there still reads well. Numbers, units and dates
/// do not follow: they belong to the user's locale.
///
/// An empty languageCode means the user's own languages, best first, and
/// English when none of them is known. An unknown code gives one log line, English, and the answer false.
bool installTexts(QCoreApplication& application, const QString& languageCode);
