// The settings page with 5 system, 5 custom and 5 app rows: making it, compared with plain Qt widgets of the
// same number and layout, and the way from a click on a check box to the request at the gateway. Without a
// theme. Needs no screen: QT_QPA_PLATFORM=offscreen build/release/benchmarks/SettingsPageBenchmark

#include "AutoRunCollectionEntity.h"
#include "AutoRunInfoEntity.h"
#include "BareSettingsPage.h"
#include "ui/AutoRunSettingWidget.h"

#include "base-ui/TLCheckBox.h"
#include "base/IRouteExecutor.h"
#include "base/Provided.h"
#include "frame-data/TLPluginBaseManager.h"
#include "http-module/DsmGatewayConfig.h"
#include "http-module/IDsmGateway.h"
#include "http/HttpManager.h"
#include "http/HttpReplyCache.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <QtCore/QElapsedTimer>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <memory>

namespace {

constexpr int RowsOfAKind = 5;

QByteArray Reply(const QByteArray& data)
{
    return R"({"code":"0","message":"","requestId":"r","data":)" + data + '}';
}

QByteArray Configuration()
{
    AutoRunCollectionEntity collection;
    for (auto* const list : {&collection.systemItems, &collection.customItems, &collection.pluginItems}) {
        for (int i = 0; i < RowsOfAKind; ++i) {
            const auto entry = AutoRunInfoEntityPtr::create();
            entry->itemId = QStringLiteral("{6f1c2d3e-0000-4000-800%1-00000000000%2}")
                                .arg(list == &collection.systemItems   ? 0
                                     : list == &collection.customItems ? 1
                                                                       : 2)
                                .arg(i);
            entry->name = QStringLiteral("Entry %1").arg(i);
            entry->url = QStringLiteral("https://vx.example/%1").arg(i);
            entry->systemItem = list == &collection.systemItems;
            entry->checked = i % 2 == 0;
            entry->type = list == &collection.pluginItems ? AutoRunInfoEntity::TypeApp
                                                          : AutoRunInfoEntity::TypeWebAddress;
            list->append(entry);
        }
    }
    return Reply(collection.ToJson());
}

enum class Until
{
    Made,
    LaidOut,
    Painted
};

double Seconds(const QElapsedTimer& clock)
{
    return double(clock.nsecsElapsed()) / 1e9;
}

/// Holds one call until told to answer it.
class HoldingHttpManager final : public IHttpManager
{
public:
    void Answer(const QByteArray& reply)
    {
        m_response->SetData(reply);
        m_finished();
    }
    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int, int) override
    {
        m_request = request;
        m_response = response;
        m_finished = std::move(finished);
    }

private:
    QSharedPointer<IHttpRequest> m_request;
    QSharedPointer<IHttpResponse> m_response;
    std::function<void()> m_finished;
};

/// Provides an app list.
class Router final : public IRouteExecutor
{
public:
    bool ExecuteRoute(const VXRouterProtocol&) override { return false; }
    QObject* GetRouteObject(const VXRouterProtocol&) override { return &m_apps; }

private:
    TLPluginBaseManager m_apps;
};

std::unique_ptr<QWidget> MakePage(HoldingHttpManager& http, const QByteArray& configuration)
{
    auto page = std::make_unique<AutoRunSettingWidget>();
    http.Answer(configuration);
    return page;
}

/// Makes a page repeatedly: until it exists, until it is laid out (where plain widgets postpone more work),
/// or until it is painted.
template <class Make>
void Measure(benchmark::State& state, Until until, const Make& make)
{
    int widgets = 0;
    for ([[maybe_unused]] auto _ : state) {
        const std::clock_t start = std::clock(); // processor time, because the machine may be busy
        const std::unique_ptr<QWidget> page = make();
        if (until != Until::Made) {
            page->setAttribute(Qt::WA_DontShowOnScreen);
            page->resize(560, 700);
            page->show();
        }
        if (until == Until::Painted) {
            benchmark::DoNotOptimize(page->grab());
        }
        state.SetIterationTime(double(std::clock() - start) / CLOCKS_PER_SEC);
        widgets = page->findChildren<QWidget*>().size();
    }
    state.counters["widgets"] = widgets;
}

void Page(benchmark::State& state, Until until)
{
    HoldingHttpManager http;
    const Provided<IHttpManager> provided(&http);
    const QByteArray configuration = Configuration();
    Measure(state, until, [&] { return MakePage(http, configuration); });
}

void Bare(benchmark::State& state, Until until)
{
    Measure(state, until, [] {
        return std::unique_ptr<QWidget>(MakeBareSettingsPage(RowsOfAKind, RowsOfAKind, RowsOfAKind));
    });
}

BENCHMARK_CAPTURE(Page, made, Until::Made)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Bare, made, Until::Made)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Page, laid_out, Until::LaidOut)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Bare, laid_out, Until::LaidOut)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Page, painted, Until::Painted)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Bare, painted, Until::Painted)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// A gateway in this process that answers whole requests immediately. It counts a request at its first byte:
/// unlike the real gateway, it does not acknowledge the head at once, and Qt sends the body only after that.
class LoopbackGateway final : public IDsmGateway
{
public:
    LoopbackGateway()
    {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            QTcpSocket* const socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, socket] { Read(socket); });
        });
    }

    int requests = 0; ///< whose first byte has arrived

    DsmGatewayConfig GetConfig() const override
    {
        DsmGatewayConfig config;
        config.address = QUrl(QStringLiteral("http://127.0.0.1:%1/gateway").arg(m_server.serverPort()));
        config.appKey = QStringLiteral("key");
        config.appSecret = QStringLiteral("secret");
        config.accessToken = QStringLiteral("token");
        config.language = QStringLiteral("en");
        config.platform = QStringLiteral("pc-win");
        return config;
    }

private:
    void Read(QTcpSocket* socket)
    {
        requests += m_received.isEmpty() ? 1 : 0;
        m_received += socket->readAll();
        const int head = m_received.indexOf("\r\n\r\n");
        const QByteArray field = "content-length:";
        const int length = m_received.left(head).toLower().indexOf(field);
        if (head < 0 || length < 0) {
            return;
        }
        const int from = length + field.size();
        const int body = m_received.mid(from, m_received.indexOf('\r', from) - from).trimmed().toInt();
        if (m_received.size() < head + 4 + body) {
            return;
        }
        const QByteArray reply =
            m_received.contains("dsm.tl.pc.auto.run.get") ? Configuration() : Reply("true");
        m_received.clear();
        socket->write("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " +
                      QByteArray::number(reply.size()) + "\r\n\r\n" + reply);
    }

    QTcpServer m_server;
    QByteArray m_received;
};

/// Sends calls and records when the page handed its request over.
class WatchedHttpManager final : public IHttpManager
{
public:
    QElapsedTimer clock;
    double handedOver = 0; ///< [s] on the clock, when `Send` returned

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override
    {
        m_http.Send(request, response, std::move(finished), timeout, attempts);
        handedOver = Seconds(clock);
    }

private:
    HttpManager m_http{nullptr};
};

void ClickToRequest(benchmark::State& state)
{
    LoopbackGateway gateway;
    const Provided<IDsmGateway> providedGateway(&gateway);
    WatchedHttpManager http;
    http.clock.start();
    const Provided<IHttpManager> providedHttp(&http);
    AutoRunSettingWidget page;
    page.resize(560, 700);
    page.show();
    const auto isLoaded = [&page] {
        return page.findChildren<AutoRunBaseItem*>().size() == 3 * RowsOfAKind + 1;
    };
    if (!QTest::qWaitFor(isLoaded)) {
        state.SkipWithError("the page did not load");
        return;
    }
    const QList<AutoRunBaseItem*> rows = page.findChildren<AutoRunBaseItem*>();
    bool answered = true;
    const auto answer = [&answered] { answered = true; };
    QObject::connect(&page, &SettingItemBaseWidget::SigSaveSucceed, &page, answer);
    QObject::connect(&page, &SettingItemBaseWidget::SigSaveFailed, &page,
                     [&state] { state.SkipWithError("a save failed"); });

    QVector<double> handed;
    QVector<double> arrived;
    int row = 0;
    for ([[maybe_unused]] auto _ : state) {
        row = row % (rows.size() - 1) + 1; // the first row is locked
        answered = false;
        const int before = gateway.requests;
        http.clock.restart();
        QTest::mouseClick(rows[row]->findChild<TLCheckBox*>(), Qt::LeftButton);
        handed.append(http.handedOver);
        while (gateway.requests == before) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        const double seconds = Seconds(http.clock);
        state.SetIterationTime(seconds);
        arrived.append(seconds);
        while (!answered) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    const auto milliseconds = [](QVector<double> times, double part) {
        std::sort(times.begin(), times.end());
        return times.isEmpty() ? 0 : times[int(part * (times.size() - 1))] * 1000;
    };
    state.counters["handed_over_ms"] = milliseconds(handed, 0.5);
    state.counters["handed_over_ms_worst"] = milliseconds(handed, 1);
    state.counters["arrived_ms"] = milliseconds(arrived, 0.5);
    state.counters["arrived_ms_worst"] = milliseconds(arrived, 1);
}
BENCHMARK(ClickToRequest)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    Router router;
    const Provided<IRouteExecutor> provided(&router);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
