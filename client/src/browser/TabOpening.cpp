#include "TabOpening.h"

#include "browser/TabRouterUrls.h"

#include "base/VXRouterProtocol.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TLPluginBaseEntity.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TLUrlUtils.h"
#include "frame-data/TabOpenInfo.h"

TabRecord TabOpening::MakeWebRecord(const TabOpenInfo& info)
{
    TabRecord record;
    record.title = info.title;
    record.iconUrl = info.iconUrl;
    record.closable = info.closable;
    record.delayed = info.isDelay;
    record.remember = info.remember;
    record.address = TLUrlUtils::ToWebUrl(info.address);
    if (!record.address.isValid()) {
        record.trouble = TabRecord::Trouble::RefusedAddress;
        record.text = info.address;
    }
    return record;
}

TabRecord TabOpening::MakeAppRecord(const QString& serviceCode, const TLPluginBaseManager* apps)
{
    TabRecord record;
    record.type = TabType::WebApp;
    record.serviceCode = serviceCode;
    const auto app = apps ? apps->GetPlugin(serviceCode) : nullptr;
    if (!app) {
        record.trouble = TabRecord::Trouble::UnknownApp;
        return record;
    }
    record.appName = app->GetPluginName();
    record.appIconUrl = app->GetIconUrl();
    const QString address = app->GetAddress();
    if (address.isEmpty()) {
        record.type = TabType::NativeApp;
        return record;
    }
    record.address = TLUrlUtils::ToWebUrl(address);
    if (!record.address.isValid()) {
        record.trouble = TabRecord::Trouble::RefusedAppAddress;
        record.text = address;
    }
    return record;
}

TabRecord TabOpening::MakeAppRecord(const PluginOpenInfo& info, const TLPluginBaseManager* apps)
{
    TabRecord record = MakeAppRecord(info.serviceCode, apps);
    record.title = info.title;
    record.iconUrl = info.iconUrl;
    record.delayed = info.isDelay;
    return record;
}

bool TabOpening::IsOfTheWeb(const QUrl& address)
{
    return address.isValid() &&
           (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"));
}

QString TabOpening::MakeRouterUrl(const TabRecord& record, const QUrl& address)
{
    if (!record.remember) {
        return {};
    }
    if (!record.serviceCode.isEmpty()) {
        return VXRouterProtocol(TabRouterUrls::PluginOpen)
            .With(QStringLiteral("code"), record.serviceCode)
            .GetUrl();
    }
    if (!IsOfTheWeb(address)) {
        return {};
    }
    return VXRouterProtocol(TabRouterUrls::BrowserOpen)
        .With(QStringLiteral("url"), QString::fromLatin1(address.adjusted(QUrl::RemoveUserInfo).toEncoded()))
        .GetUrl();
}
