#pragma once

#include <QString>
#include <QUrl>

#include <ostream>

// Readable texts in the messages of failing tests.

inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QUrl& url, std::ostream* stream)
{
    *stream << url.toString().toStdString();
}
