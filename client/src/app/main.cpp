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
    // Nothing can be said about a stream that takes nothing.
    static_cast<void>(std::fputs(qUtf8Printable(text + QLatin1Char('\n')), stream));
}

/// Where nobody reads what is written, as in a program of Windows without a console, a box says it.
void SayProblem(const QString& problem)
{
    Say(stderr, QStringLiteral("tl-client: ") + problem);
#ifdef Q_OS_WIN
    if (::_fileno(stderr) < 0) {
        QMessageBox::critical(nullptr, QCoreApplication::applicationName(), problem);
    }
#endif
}

/// Help and version are for somebody at a terminal, who may have no display. Empty: go on.
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
    // Last of all: the profile is closed, and the new process has it for itself.
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
    // A monitor at 150 % is drawn at 150 %, pages included. Elsewhere the scale may come from what the
    // monitor says of its size, which is no round number, and Qt rounds it.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
#endif
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setApplicationName(QStringLiteral("tl-client"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TL_CLIENT_VERSION));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // the client ends in an order of its own
#ifdef Q_OS_WIN
    // Qt 5 takes the font of Windows 2000's dialogs; what the user chose, and what Windows itself uses, is
    // this one.
    QApplication::setFont(QApplication::font("QMessageBox"));
#endif
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/tl-client.svg")));

    return RunClient();
}
