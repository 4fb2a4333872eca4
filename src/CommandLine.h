#pragma once

#include <QString>
#include <QStringList>

/// What the user asked for on the command line.
struct CommandLine {
    bool simulate = false; ///< drive the built-in simulated desk
    bool testWindow = false; ///< open the developer's test window
    QString language; ///< two-letter code; empty for the user's own
    QString command; ///< the name of an option that asks something of the program; empty for none
    bool asJson = false; ///< the status, instead of a text
    bool endsHere = false; ///< help or version was printed, or the arguments were wrong
    int exitCode = 0;

    /// Reads the arguments (the program's name first). A session manager's `-session ID` is left to Qt.
    /// Prints help, version or an error itself.
    static CommandLine parse(QStringList arguments);
    /// Whether a program that does not run yet is started for the command.
    [[nodiscard]] bool opensWindow() const;
    /// Prints that there are no texts in the language that was asked for.
    [[nodiscard]] CommandLine refusedLanguage() const;
};
