#pragma once

#include "PageEngines.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <optional>

/// What the command line asks for.
struct ClientOptions
{
    QUrl gateway;                 ///< empty: as the settings file says
    QString profile;              ///< the folder of the client's own data
    QString modules;              ///< empty: the folders of the installation
    QString pin;                  ///< empty: the one that signed in last is proposed
    QString passwordFile;         ///< with `pin`: sign in without showing the dialog
    QString trace;                ///< empty: no trace
    QString screenshot;           ///< empty: no picture
    std::optional<int> quitAfter; ///< [ms] after the start
    PageEngine pageEngine = PageEngines::GetBest();
    bool takeSession = false; ///< the client before hands its session over (`SessionHandover`)

    /// Understands `arguments` (the program's name first). Empty, with a sentence in `problem`, when they
    /// cannot be used. Needs a QCoreApplication for the default profile; creates nothing.
    static std::optional<ClientOptions> Parse(const QStringList& arguments, QString* problem);

    /// Whether the arguments ask for the help or the version, which need no display.
    static bool WantsHelp(const QStringList& arguments);
    static bool WantsVersion(const QStringList& arguments);
    static QString GetHelp();

    /// The arguments with which a fresh process takes over after this one ended: without the program's
    /// name and without what was meant for one log-in only (pin, password, end and picture).
    static QStringList ForFreshStart(const QStringList& arguments);
    /// The same for a process that takes over the session.
    static QStringList ForRestart(const QStringList& arguments);
};
