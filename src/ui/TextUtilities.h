#pragma once

#include <QString>
#include <QUrl>

class QLineEdit;

/// The UTF-16 units in reverse order.
[[nodiscard]] QString reversed(const QString& string);

/// Rich text for a HyperLinkTextField: the whole string as one underlined link in the hover colour and the
/// font Light18. Markup in the string is shown as it stands; line breaks are kept.
[[nodiscard]] QString hyperlinkFromString(const QString& string, const QUrl& url);

/// Plain text as rich text, to stand beside links: markup is shown as it stands, line breaks are kept.
[[nodiscard]] QString richTextFromString(const QString& string);

/// Sets the text in the middle of a tall field, or back at its top.
void setVerticalCentering(QLineEdit& field, bool centered);
