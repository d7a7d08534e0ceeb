#pragma once

#include "PageEngines.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <optional>

/// What the command line asks for.
struct ClientOptions
{
    QUrl gateway;                 ///< empty: the one from the settings file
    QString profile;              ///< folder of the client's own data
    QString modules;              ///< empty: the installation's folder
    QString pin;                  ///< empty: the dialog proposes the last account
    QString passwordFile;         ///< with `pin`: signs in without the dialog
    QString trace;                ///< empty: no trace
    QString screenshot;           ///< empty: no screenshot
    std::optional<int> quitAfter; ///< [ms] after the start
    PageEngine pageEngine = PageEngines::GetBest();
    bool takeSession = false; ///< from the previous client (`SessionHandover`)

    /// Reads `arguments` (the program's name first). If they are invalid, returns nothing and puts a sentence
    /// into `problem`. Needs a QCoreApplication for the default profile; creates no files.
    static std::optional<ClientOptions> Parse(const QStringList& arguments, QString* problem);

    /// Whether the arguments ask for help or version, which need no display.
    static bool WantsHelp(const QStringList& arguments);
    static bool WantsVersion(const QStringList& arguments);
    static QString GetHelp();

    /// The arguments for a fresh process after this one: without the program's name and without the options
    /// for a single log-in (`forOneLogIn` in the source).
    static QStringList ForFreshStart(const QStringList& arguments);
    /// The same for a process that takes over the session.
    static QStringList ForRestart(const QStringList& arguments);
};
