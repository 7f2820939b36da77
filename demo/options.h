#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vorn::demo {

/// What the command line asks for.
struct Options {
    QString database;           ///< empty: the sample database, built when it isn't there yet
    std::optional<int> patient; ///< none: the first one
    int zoom = 100;             ///< percent
    QString picture;            ///< shown in place of the drawing; empty: none
    QString exportFile;         ///< empty: a window
    bool help = false;
};

/// Reads the arguments behind the program's name. Throws std::runtime_error with a text for the user.
Options ReadOptions(const QStringList& arguments);

QString HelpText();

} // namespace vorn::demo
