#include "PreviewGateway.h"

#include "http-module/IHttpRequestDsm.h"
#include "http/IHttpResponse.h"
#include "http/IResponseCacheMethod.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QTimer>

namespace {

constexpr int UsualDelay = 30;   // [ms]
constexpr int SlowDelay = 60000; // [ms]

QJsonObject Entry(const QString& id, const QString& name, const QString& url, int type, bool system,
                  bool checked, bool active)
{
    return {{QStringLiteral("itemId"), id},         {QStringLiteral("name"), name},
            {QStringLiteral("url"), url},           {QStringLiteral("type"), type},
            {QStringLiteral("systemItem"), system}, {QStringLiteral("checked"), checked},
            {QStringLiteral("activeItem"), active}};
}

QJsonObject Full()
{
    const QJsonArray systemItems{Entry(QStringLiteral("s1"), QStringLiteral("Order centre"),
                                       QStringLiteral("https://shop.example/o"), 0, true, true, false),
                                 Entry(QStringLiteral("s2"), QStringLiteral("Customer service"),
                                       QStringLiteral("https://shop.example/c"), 0, true, false, false)};
    const QJsonArray customItems{
        Entry(QStringLiteral("c1"), QString(), QStringLiteral("https://www.shop.example/orders/today"), 0,
              false, true, true),
        Entry(
            QStringLiteral("c2"), QString(),
            QStringLiteral("https://reports.shop.example/2026/november/turnover-by-department-and-day?format="
                           "table&compare=last-year&currency=cny"),
            0, false, false, false),
        Entry(QStringLiteral("c3"), QString(), QStringLiteral("https://stock.shop.example/"), 0, false, true,
              false)};
    const QJsonArray pluginItems{Entry(QStringLiteral("p1"), QStringLiteral("Print station"),
                                       QStringLiteral("print"), 1, false, true, false),
                                 Entry(QStringLiteral("p2"), QStringLiteral("客服工作台"),
                                       QStringLiteral("service"), 1, false, false, false)};
    return {{QStringLiteral("systemItems"), systemItems},
            {QStringLiteral("customItems"), customItems},
            {QStringLiteral("pluginItems"), pluginItems}};
}

/// As many custom entries as there can be.
void FillUp(QJsonObject* configuration)
{
    QJsonArray entries = configuration->value(QLatin1String("customItems")).toArray();
    while (entries.size() < 5) {
        const QString number = QString::number(entries.size() + 1);
        entries.append(Entry(QStringLiteral("c") + number, QString(),
                             QStringLiteral("https://branch%1.shop.example/").arg(number), 0, false, false,
                             false));
    }
    configuration->insert(QStringLiteral("customItems"), entries);
}

} // namespace

PreviewGateway::PreviewGateway(const QString& list) : stale(list == QLatin1String("stale")), m_list(list)
{
    if (list == QLatin1String("empty")) {
        return;
    }
    m_configuration = Full();
    if (list == QLatin1String("many")) {
        FillUp(&m_configuration);
    }
}

PreviewGateway::~PreviewGateway() = default;

void PreviewGateway::Send(const QSharedPointer<IHttpRequest>& request,
                          const QSharedPointer<IHttpResponse>& response, std::function<void()> finished, int,
                          int)
{
    if (m_list == QLatin1String("loading")) {
        return;
    }
    const bool isWrite = request->GetMethodName() == "dsm.tl.pc.auto.run.set";
    writes += isWrite ? 1 : 0;
    int delay = UsualDelay;
    if (isWrite && writeDelay > 0) {
        delay = writeDelay;
    } else if (isWrite && m_list == QLatin1String("slow")) {
        delay = SlowDelay;
    }
    QTimer::singleShot(delay, this, [this, request, response, finished, isWrite] {
        const bool fails = isWrite ? failures-- > 0 : m_list == QLatin1String("failed");
        if (fails) {
            response->SetNetworkError(1, QStringLiteral("Connection refused"));
        } else {
            if (const auto* const write = qobject_cast<IHttpRequestDsm*>(request.data()); isWrite && write) {
                m_configuration = QJsonDocument::fromJson(write->GetBusinessParam())
                                      .object()
                                      .value(QLatin1String("workstationSetResult"))
                                      .toObject();
            }
            const QJsonObject reply{
                {QStringLiteral("code"), QStringLiteral("0")},
                {QStringLiteral("message"), QString()},
                {QStringLiteral("requestId"), QStringLiteral("preview")},
                {QStringLiteral("data"), isWrite ? QJsonValue(true) : QJsonValue(m_configuration)}};
            if (!isWrite && stale) {
                dynamic_cast<IResponseCacheMethod&>(*response).SetCacheData(QJsonDocument(reply).toJson());
            } else {
                response->SetData(QJsonDocument(reply).toJson());
            }
        }
        finished();
    });
}
