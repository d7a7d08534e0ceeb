#include "ClientOptions.h"

#include "gateway/GatewaySettings.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

namespace {

struct OptionText
{
    const char* name;
    const char* value; // null for a switch
    const char* description;
    bool forOneLogIn;
};

constexpr OptionText OptionTexts[] = {
    {"gateway", "URL", "Address of the gateway (http or https).", false},
    {"profile", "DIR", "Folder of the client's own data.", false},
    {"modules", "DIR", "Folder of the modules to load.", false},
    {"page-engine", "NAME", "What shows pages: web, or plain for their text.", false},
    {"pin", "PIN", "Account to sign in with.", true},
    {"password-file", "FILE", "With --pin: sign in with the first line of FILE.", true},
    {"trace", "FILE", "Append one line of JSON per event to FILE.", false},
    {"screenshot", "FILE", "Save the main window as a PNG once its tabs have loaded.", true},
    {"quit-after", "MS", "Quit in good order after so many milliseconds.", true},
    {"take-session", nullptr,
     "Take over the session of the client that restarts (given by that client only).", true},
    {"help", nullptr, "Show this help and exit.", false},
    {"version", nullptr, "Show the version and exit.", false},
};

constexpr int LongestRun = 24 * 60 * 60 * 1000; // [ms]

bool IsOption(const QString& argument, const char* name)
{
    const QString bare = QLatin1String(name);
    return argument == QLatin1String("--") + bare || argument == QLatin1Char('-') + bare;
}

bool HasSwitch(const QStringList& arguments, const char* name, const char* shortName)
{
    for (const QString& argument : arguments.mid(1)) {
        if (IsOption(argument, name) || argument == QLatin1String(shortName)) {
            return true;
        }
    }
    return false;
}

QString FolderOfFile(const QString& file)
{
    return QFileInfo(file).absolutePath();
}

QString CheckGateway(const QString& value, QUrl* address)
{
    *address = GatewaySettings::ToAddress(value);
    return address->isEmpty() ? QStringLiteral("--gateway \"%1\": not an http or https address").arg(value)
                              : QString();
}

QString CheckProfile(const QString& folder)
{
    const QFileInfo info(folder);
    if (folder.isEmpty() || (info.exists() && !info.isDir())) {
        return QStringLiteral("--profile \"%1\": not a folder").arg(folder);
    }
    if (info.exists() && !info.isWritable()) {
        return QStringLiteral("--profile \"%1\": the folder cannot be written to").arg(folder);
    }
    return QString();
}

QString CheckPageEngine(const QString& name, PageEngine* engine)
{
    const std::optional<PageEngine> known = PageEngines::FromName(name);
    if (!known) {
        return QStringLiteral("--page-engine \"%1\": this client has %2")
            .arg(name, PageEngines::GetNames().join(QLatin1String(" and ")));
    }
    *engine = *known;
    return QString();
}

QString CheckQuitAfter(const QString& value, std::optional<int>* milliseconds)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber || number < 0 || number > LongestRun) {
        return QStringLiteral("--quit-after \"%1\": not a number of milliseconds from 0 to %2")
            .arg(value)
            .arg(LongestRun);
    }
    *milliseconds = number;
    return QString();
}

QString CheckPasswordFile(const QString& file, bool hasPin)
{
    if (!hasPin) {
        return QStringLiteral("--password-file needs --pin");
    }
    const QFileInfo info(file);
    return info.isFile() && info.isReadable()
               ? QString()
               : QStringLiteral("--password-file \"%1\": no such file, or it cannot be read").arg(file);
}

QString CheckOutput(const char* name, const QString& file)
{
    const bool canBeMade =
        !file.isEmpty() && !QFileInfo(file).isDir() && QFileInfo(FolderOfFile(file)).isDir();
    return canBeMade
               ? QString()
               : QStringLiteral("--%1 \"%2\": not a file that can be made").arg(QLatin1String(name), file);
}

void AddOptions(QCommandLineParser& parser)
{
    for (const OptionText& text : OptionTexts) {
        QCommandLineOption option(QLatin1String(text.name));
        if (text.value) {
            option.setValueName(QLatin1String(text.value));
        }
        parser.addOption(option);
    }
}

/// Fills in `options` from the arguments; returns the problems, with an empty text for each check passed.
QStringList Read(const QCommandLineParser& parser, ClientOptions* options)
{
    const auto isSet = [&parser](const char* name) { return parser.isSet(QLatin1String(name)); };
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };
    QStringList problems;
    if (isSet("gateway")) {
        problems << CheckGateway(value("gateway"), &options->gateway);
    }
    // Not a roaming folder of Windows: that may be on a network share, and the settings store needs a disk.
    options->profile = isSet("profile")
                           ? value("profile")
                           : QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    problems << CheckProfile(options->profile);
    options->profile = QDir(options->profile).absolutePath();
    options->modules = value("modules");
    if (isSet("modules") && !QFileInfo(options->modules).isDir()) {
        problems << QStringLiteral("--modules \"%1\": no such folder").arg(options->modules);
    }
    if (isSet("page-engine")) {
        problems << CheckPageEngine(value("page-engine"), &options->pageEngine);
    }
    options->pin = value("pin");
    if (isSet("pin") && options->pin.trimmed().isEmpty()) {
        problems << QStringLiteral("--pin: the account's name is empty");
    }
    options->passwordFile = value("password-file");
    if (isSet("password-file")) {
        problems << CheckPasswordFile(options->passwordFile, isSet("pin"));
    }
    options->trace = value("trace");
    options->screenshot = value("screenshot");
    for (const char* const name : {"trace", "screenshot"}) {
        if (isSet(name)) {
            problems << CheckOutput(name, value(name));
        }
    }
    if (isSet("quit-after")) {
        problems << CheckQuitAfter(value("quit-after"), &options->quitAfter);
    }
    options->takeSession = isSet("take-session");
    if (options->takeSession && !options->passwordFile.isEmpty()) {
        problems << QStringLiteral("--take-session and --password-file exclude each other");
    }
    return problems;
}

} // namespace

std::optional<ClientOptions> ClientOptions::Parse(const QStringList& arguments, QString* problem)
{
    QCommandLineParser parser;
    AddOptions(parser);
    if (!parser.parse(arguments)) {
        *problem = parser.errorText();
        return std::nullopt;
    }
    if (!parser.positionalArguments().isEmpty()) {
        *problem =
            QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().constFirst());
        return std::nullopt;
    }
    ClientOptions options;
    QStringList problems = Read(parser, &options);
    problems.removeAll(QString());
    if (!problems.isEmpty()) {
        *problem = problems.constFirst();
        return std::nullopt;
    }
    return options;
}

bool ClientOptions::WantsHelp(const QStringList& arguments)
{
    return HasSwitch(arguments, "help", "-h");
}

bool ClientOptions::WantsVersion(const QStringList& arguments)
{
    return HasSwitch(arguments, "version", "-v");
}

QString ClientOptions::GetHelp()
{
    QString help = QStringLiteral("Usage: tl-client [options]\n\nOptions:\n");
    for (const OptionText& text : OptionTexts) {
        QString left = QStringLiteral("  --") + QLatin1String(text.name);
        if (text.value) {
            left += QLatin1Char(' ') + QLatin1String(text.value);
        }
        help += left.leftJustified(26) + QLatin1String(text.description) + QLatin1Char('\n');
    }
    return help;
}

QStringList ClientOptions::ForFreshStart(const QStringList& arguments)
{
    QStringList kept;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString name = arguments.at(i).section(QLatin1Char('='), 0, 0);
        bool dropped = false;
        bool hasValue = false;
        for (const OptionText& text : OptionTexts) {
            if (IsOption(name, text.name)) {
                dropped = text.forOneLogIn;
                hasValue = text.value && !arguments.at(i).contains(QLatin1Char('='));
            }
        }
        if (!dropped) {
            kept.append(arguments.at(i));
        }
        if (hasValue && i + 1 < arguments.size()) {
            ++i;
            if (!dropped) {
                kept.append(arguments.at(i));
            }
        }
    }
    return kept;
}

QStringList ClientOptions::ForRestart(const QStringList& arguments)
{
    return ForFreshStart(arguments) << QStringLiteral("--take-session");
}
