// From dlopen to the end of InitModule, compared with an empty Qt plug-in. Each sample runs in its own
// process, because a library is only cold the first time; module and plug-in take turns.
//
// usage: ModuleLoadBenchmark [samples]        prints the medians and their ratio

#include "frame-core/IBusinessModule.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QPluginLoader>
#include <QtCore/QProcess>
#include <QtCore/QVector>

#include <algorithm>
#include <cstdio>

namespace {

int Sample(const QString& file)
{
    QElapsedTimer timer;
    timer.start();
    QPluginLoader loader(file);
    QObject* root = loader.instance();
    if (!root) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    auto* module = qobject_cast<IBusinessModule*>(root);
    if (module) {
        module->InitModule();
    }
    std::printf("%lld\n", static_cast<long long>(timer.nsecsElapsed() / 1000));
    if (module) {
        module->UninitModule();
    }
    return 0;
}

qint64 Median(QVector<qint64> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--sample")) {
        return Sample(arguments[2]);
    }

    const int samples = arguments.size() > 1 ? arguments[1].toInt() : 50;
    const QString files[] = {QStringLiteral(TL_MODULE_FILE), QStringLiteral(TL_EMPTY_PLUGIN_FILE)};
    QVector<qint64> microseconds[2];
    for (int i = 0; i < samples; ++i) {
        for (int kind = 0; kind < 2; ++kind) {
            QProcess process;
            process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
            process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--sample"), files[kind]});
            if (!process.waitForFinished() || process.exitCode() != 0) {
                return 1;
            }
            microseconds[kind].append(process.readAllStandardOutput().trimmed().toLongLong());
        }
    }
    const qint64 module = Median(microseconds[0]);
    const qint64 empty = Median(microseconds[1]);
    std::printf("module, dlopen to InitModule done: %lld us (median of %d)\n", static_cast<long long>(module),
                samples);
    std::printf("empty Qt plug-in, dlopen to instance: %lld us\n", static_cast<long long>(empty));
    std::printf("ratio %.2f\n", empty > 0 ? double(module) / double(empty) : 0.0);
    return 0;
}
