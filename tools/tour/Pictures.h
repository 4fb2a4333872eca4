#pragma once

#include "ui/Appearance.h"

#include <QLocale>
#include <QString>

#include <vector>

/// Makes pictures of every window in every state, as PNG files NAME + suffix in a folder; those at another
/// scale than 1 have it in their names. The program runs on the simulated desk and virtual time, so the same
/// state gives the same picture; texts and layout direction are those of the application. False when a file
/// cannot be written.
bool makePictures(const QString& folder, const QString& suffix, const QLocale& locale,
    Appearance::Choice appearance, const std::vector<double>& scales);
