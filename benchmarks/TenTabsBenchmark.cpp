// From the log-in reply to the tenth tab, compared with a bare program that makes the same ten web views. The
// built client and gateway run as processes; client and bare program take turns, each run with a fresh
// profile. Needs a screen: xvfb-run -a build/release/benchmarks/TenTabsBenchmark
//
// usage: TenTabsBenchmark [runs]

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtCore/QVector>

#include <algorithm>
#include <cstdio>

namespace {

const QStringList Pages{QStringLiteral("today"),    QStringLiteral("messages"), QStringLiteral("supplier"),
                        QStringLiteral("calendar"), QStringLiteral("orders"),   QStringLiteral("inventory"),
                        QStringLiteral("shipping"), QStringLiteral("reviews"),  QStringLiteral("campaigns"),
                        QStringLiteral("returns")};

struct Times
{
    qint64 made = 0;   ///< [ms] from the log-in reply to the tenth tab
    qint64 loaded = 0; ///< [ms] from the log-in reply until all ten pages have loaded
};

bool RunGateway(const QString& database, const QStringList& arguments, const QByteArray& input = QByteArray())
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(TL_GATEWAY_PROGRAM),
                  arguments + QStringList{QStringLiteral("--database"), database});
    process.write(input);
    process.closeWriteChannel();
    return process.waitForFinished() && process.exitCode() == 0;
}

bool Write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// Ten web pages, five from the operator and five of the user's own, so that both programs open the same
/// addresses.
QByteArray Configuration(const QStringList& urls)
{
    QJsonArray lists[2];
    for (int i = 0; i < urls.size(); ++i) {
        lists[i / 5].append(QJsonObject{{QStringLiteral("itemId"), QString::number(i)},
                                        {QStringLiteral("name"), QString::number(i)},
                                        {QStringLiteral("url"), urls[i]},
                                        {QStringLiteral("systemItem"), i < 5},
                                        {QStringLiteral("checked"), true},
                                        {QStringLiteral("activeItem"), false},
                                        {QStringLiteral("type"), 0}});
    }
    return QJsonDocument(QJsonObject{{QStringLiteral("systemItems"), lists[0]},
                                     {QStringLiteral("customItems"), lists[1]},
                                     {QStringLiteral("pluginItems"), QJsonArray()}})
        .toJson();
}

bool RunClient(const QString& gateway, const QString& folder, const QString& passwordFile, Times& times)
{
    const QString trace = folder + QStringLiteral("/trace.jsonl");
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(
        QStringLiteral(TL_CLIENT_PROGRAM),
        {QStringLiteral("--gateway"), gateway, QStringLiteral("--profile"), folder + QStringLiteral("/p"),
         QStringLiteral("--modules"), QStringLiteral(TL_MODULES_FOLDER), QStringLiteral("--trace"), trace,
         QStringLiteral("--pin"), QStringLiteral("bench"), QStringLiteral("--password-file"), passwordFile});
    for (int wait = 0; wait < 600; ++wait) {
        QThread::msleep(100);
        QFile file(trace);
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        qint64 login = -1;
        int opened = 0;
        int loaded = 0;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            const QJsonObject event = QJsonDocument::fromJson(line).object();
            const QString name = event.value(QStringLiteral("event")).toString();
            const auto at = static_cast<qint64>(event.value(QStringLiteral("t")).toDouble());
            if (name == QLatin1String("login")) {
                login = at;
            } else if (name == QLatin1String("tab.opened") && ++opened == Pages.size()) {
                times.made = at - login;
            } else if (name == QLatin1String("page.loaded") && ++loaded == Pages.size()) {
                times.loaded = at - login;
            }
        }
        if (loaded >= Pages.size()) {
            process.terminate();
            return process.waitForFinished();
        }
    }
    process.kill();
    process.waitForFinished();
    return false;
}

bool RunBare(const QStringList& urls, const QString& folder, Times& times)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(TL_BARE_PROGRAM), QStringList{folder} + urls);
    if (!process.waitForFinished(90000) || process.exitCode() != 0) {
        return false;
    }
    const QList<QByteArray> numbers = process.readAllStandardOutput().trimmed().split(' ');
    times.made = numbers.value(0).toLongLong();
    times.loaded = numbers.value(1).toLongLong();
    return true;
}

double Median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0.0 : values[values.size() / 2];
}

/// Fills the gateway's database with the demo data and a user of the ten pages, whose password goes to
/// `passwordFile`.
bool SetUpGateway(const QString& database, const QString& address, const QStringList& urls,
                  const QString& folder, const QString& passwordFile)
{
    const QByteArray password = "bench-password\n";
    const QString configuration = folder + QStringLiteral("/configuration.json");
    return Write(configuration, Configuration(urls)) && Write(passwordFile, password) &&
           RunGateway(database, {QStringLiteral("demo"), QStringLiteral("--pages"), address}) &&
           RunGateway(database,
                      {QStringLiteral("user"), QStringLiteral("add"), QStringLiteral("bench"),
                       QStringLiteral("--belong-type"), QStringLiteral("merchant")},
                      password) &&
           RunGateway(database, {QStringLiteral("config"), QStringLiteral("import"), QStringLiteral("bench"),
                                 configuration});
}

/// Runs both programs in turn and prints the times and the median ratios.
bool Compare(int runs, const QString& address, const QStringList& urls, const QString& passwordFile)
{
    QVector<double> made;
    QVector<double> loaded;
    for (int run = 0; run < runs; ++run) {
        const QTemporaryDir clientFolder;
        const QTemporaryDir bareFolder;
        Times client;
        Times bare;
        if (!RunClient(address, clientFolder.path(), passwordFile, client) ||
            !RunBare(urls, bareFolder.path(), bare)) {
            std::fprintf(stderr, "run %d did not finish\n", run);
            return false;
        }
        std::printf("client: tenth tab %5lld ms, all loaded %5lld ms   bare: %5lld ms, %5lld ms\n",
                    static_cast<long long>(client.made), static_cast<long long>(client.loaded),
                    static_cast<long long>(bare.made), static_cast<long long>(bare.loaded));
        std::fflush(stdout);
        made.append(double(client.made) / double(std::max<qint64>(bare.made, 1)));
        loaded.append(double(client.loaded) / double(std::max<qint64>(bare.loaded, 1)));
    }
    std::printf("ratio, median of %d: tenth tab %.2f, all loaded %.2f\n", runs, Median(made), Median(loaded));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const int runs = QCoreApplication::arguments().size() > 1 ? QCoreApplication::arguments()[1].toInt() : 7;

    const QTemporaryDir folder;
    const QString database = QStringLiteral("sqlite:%1/gateway.sqlite").arg(folder.path());
    QProcess gateway;
    gateway.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    gateway.start(QStringLiteral(TL_GATEWAY_PROGRAM),
                  {QStringLiteral("serve"), QStringLiteral("--database"), database,
                   QStringLiteral("--listen"), QStringLiteral("127.0.0.1:0"), QStringLiteral("--demo-pages"),
                   QStringLiteral("--log-level"), QStringLiteral("warn")});
    if (!gateway.waitForReadyRead()) {
        return 1;
    }
    const QString address = QString::fromUtf8(gateway.readAllStandardOutput().trimmed().split(' ').last());
    QStringList urls;
    for (const QString& page : Pages) {
        urls.append(QStringLiteral("%1/demo/%2").arg(address, page));
    }
    const QString passwordFile = folder.filePath(QStringLiteral("password"));
    const bool ok = SetUpGateway(database, address, urls, folder.path(), passwordFile) &&
                    Compare(runs, address, urls, passwordFile);
    gateway.terminate();
    gateway.waitForFinished();
    return ok ? 0 : 1;
}
