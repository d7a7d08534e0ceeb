#include "ClientApplication.h"
#include "ClientOptions.h"
#include "system/SandboxCheck.h"

#include <QtCore/QProcess>
#include <QtGui/QFont>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

#include <cstdio>
#include <optional>

#ifdef Q_OS_WIN
#include <io.h>
#endif

namespace {

void Say(std::FILE* stream, const QString& text)
{
    // If the stream accepts no text, there is nowhere left to report that.
    static_cast<void>(std::fputs(qUtf8Printable(text + QLatin1Char('\n')), stream));
}

/// Writes to the terminal; without one, as in a Windows program that has no console, shows a box.
void SayProblem(const QString& problem)
{
    Say(stderr, QStringLiteral("tl-client: ") + problem);
#ifdef Q_OS_WIN
    if (::_fileno(stderr) < 0) {
        QMessageBox::critical(nullptr, QCoreApplication::applicationName(), problem);
    }
#endif
}

/// Prints help or version if asked to, without needing a display. Empty if the client should start.
std::optional<int> AnswerAtTerminal(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    if (ClientOptions::WantsHelp(arguments)) {
        Say(stdout, ClientOptions::GetHelp().trimmed());
        return 0;
    }
    if (ClientOptions::WantsVersion(arguments)) {
        Say(stdout, QStringLiteral("tl-client ") + QStringLiteral(TL_CLIENT_VERSION));
        return 0;
    }
    return std::nullopt;
}

int RunClient()
{
    QString problem;
    const std::optional<ClientOptions> options =
        ClientOptions::Parse(QCoreApplication::arguments(), &problem);
    GatewaySettings gateway;
    if (options && options->pageEngine == PageEngine::Web) {
        problem = CheckSandbox();
    }
    if (options && problem.isEmpty()) {
        gateway = GatewaySettings::Load(GatewaySettings::DefaultFiles(),
                                        QProcessEnvironment::systemEnvironment(), &problem);
        if (!options->gateway.isEmpty()) {
            gateway.address = options->gateway;
        }
    }
    if (!problem.isEmpty()) {
        SayProblem(problem);
        return ClientApplication::UnusableOptions;
    }
    ClientApplication client(*options, gateway);
    if (!client.Prepare(&problem)) {
        SayProblem(problem);
        return ClientApplication::UnusableOptions;
    }
    const int code = client.Run();
    // Last of all: the profile is closed, so the new process can open it.
    if (!client.StartSuccessor(&problem)) {
        Say(stderr, QStringLiteral("tl-client: ") + problem);
        QMessageBox::critical(nullptr, QCoreApplication::applicationName(), problem);
    }
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    if (const std::optional<int> answered = AnswerAtTerminal(argc, argv)) {
        return *answered;
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
#ifdef Q_OS_WIN
    // Draws everything at 150 % on a monitor set to 150 %, pages included. On other systems the scale may
    // come from the reported size of the monitor, an odd number, so Qt rounds it there.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
#endif
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setApplicationName(QStringLiteral("tl-client"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TL_CLIENT_VERSION));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // the client ends in its own order
#ifdef Q_OS_WIN
    // By default Qt 5 uses the dialog font of Windows 2000. This is the font that the user chose and that
    // Windows itself uses.
    QApplication::setFont(QApplication::font("QMessageBox"));
#endif
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/tl-client.svg")));

    return RunClient();
}
