#pragma once

#include "commands/Status.h"

#include <QByteArray>
#include <QVariantMap>

// The program's status as it goes over D-Bus and onto a terminal.

/// By name, in the types that D-Bus has (a{sv}); what is empty is left out. The manual page lists the names.
[[nodiscard]] QVariantMap facts(const Status& status);
/// One JSON object on one line, without a line's end.
[[nodiscard]] QByteArray factsAsJson(const QVariantMap& facts);
/// For people: some lines, each with its end.
[[nodiscard]] QString factsAsText(const QVariantMap& facts);
