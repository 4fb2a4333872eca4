#pragma once

class QWidget;

/// Dresses a form that has just been set up. Its widgets say in properties what they wear:
/// - `textStyle`: the name of a font of FontAndTextHandler
/// - `foregroundRole`, `backgroundRole`: the name of a QPalette::ColorRole; applyWindowPalette() gives the
///   roles their colours
///
/// A label that wraps its text and says nothing wears the bundle's typeface (information key "ZelvoFontName")
/// at its present size.
void applyFormStyle(QWidget& form);
