#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

/// What the program's own source says about texts and pictures, read from the files below src/.
namespace SourceLiterals {
/// Every string literal of the C++ files, escapes resolved, and every attribute and text of the forms.
const QSet<QString>& all();

/// The literals inside the arguments of the named functions: `localized(QStringLiteral("Cancel"))` answers
/// "Cancel" for "localized". A text put together from parts (`localized(prefix + number)`) is not seen.
QStringList argumentsOf(const QStringList& functions);
}
