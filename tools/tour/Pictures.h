#pragma once

#include <QLocale>
#include <QString>

/// Makes pictures of every window in every state, at scale 1 and 2, as PNG files NAME + suffix in a folder.
/// The program runs on the simulated desk and virtual time, so the same state gives the same picture; texts
/// and layout direction are those of the application. False when a file cannot be written.
bool makePictures(const QString& folder, const QString& suffix, const QLocale& locale);
