#include "resources/SourceLiterals.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

const QRegularExpression kLiteral(QStringLiteral("\"((?:[^\"\\\\\\n]|\\\\.)*)\""));

QString unescaped(QString literal)
{
    return literal.replace(QStringLiteral("\\n"), QStringLiteral("\n"))
        .replace(QStringLiteral("\\\""), QStringLiteral("\""))
        .replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
}

QStringList literalsIn(const QString& text)
{
    QStringList literals;
    for (auto match = kLiteral.globalMatch(text); match.hasNext();)
        literals.append(unescaped(match.next().captured(1)));
    return literals;
}

QString contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The contents of the files with that ending. Neighbouring literals are joined, as the compiler does.
QStringList sources(const QStringList& patterns)
{
    static const QRegularExpression kJoint(QStringLiteral("\"\\s*\\n\\s*\""));
    QStringList contents;
    for (QDirIterator it(
             QStringLiteral(ZELVO_SOURCE_DIR), patterns, QDir::Files, QDirIterator::Subdirectories);
         it.hasNext();)
        contents.append(contentOf(it.next()).remove(kJoint));
    return contents;
}

const QStringList& codeFiles()
{
    static const QStringList contents = sources({QStringLiteral("*.cpp"), QStringLiteral("*.h")});
    return contents;
}

/// From the opening parenthesis to its partner; literals may hold parentheses of their own.
QString balanced(const QString& text, qsizetype opening)
{
    int depth = 0;
    bool quoted = false;
    for (qsizetype i = opening; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character == u'"' && text.at(i - 1) != u'\\')
            quoted = !quoted;
        else if (!quoted && character == u'(')
            ++depth;
        else if (!quoted && character == u')' && --depth == 0)
            return text.mid(opening, i - opening);
    }
    return {};
}

void addForm(const QString& content, QSet<QString>& literals)
{
    QXmlStreamReader reader(content);
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isCharacters())
            literals.insert(reader.text().toString());
        const auto attributes = reader.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            literals.insert(attribute.value().toString());
    }
}

}

const QSet<QString>& SourceLiterals::all()
{
    static const QSet<QString> literals = [] {
        QSet<QString> found;
        for (const QString& content : codeFiles())
            for (const QString& literal : literalsIn(content))
                found.insert(literal);
        for (const QString& content : sources({QStringLiteral("*.ui")}))
            addForm(content, found);
        return found;
    }();
    return literals;
}

QStringList SourceLiterals::argumentsOf(const QStringList& functions)
{
    const QRegularExpression call(QStringLiteral("\\b(?:%1)\\(").arg(functions.join(u'|')));
    QStringList literals;
    for (const QString& content : codeFiles())
        for (auto match = call.globalMatch(content); match.hasNext();)
            literals += literalsIn(balanced(content, match.next().capturedEnd() - 1));
    return literals;
}
