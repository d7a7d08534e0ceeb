#pragma once

#include "browser/TabRecord.h"

class TLPluginBaseManager;
struct PluginOpenInfo;
struct TabOpenInfo;

/// Makes the records of tabs that are to be opened.
namespace TabOpening {

/// What the caller asks for; a trouble where the address is not one that the client opens.
TabRecord MakeWebRecord(const TabOpenInfo& info);
/// The app as the app list has it; a trouble where it has none or an address that the client does not open.
/// `apps` may be null.
TabRecord MakeAppRecord(const QString& serviceCode, const TLPluginBaseManager* apps);
/// The same, with what the caller says of title and icon.
TabRecord MakeAppRecord(const PluginOpenInfo& info, const TLPluginBaseManager* apps);

/// Whether a tab can be opened again at this address. It cannot at one that a page made by itself (blob:),
/// which is gone with the page.
bool IsOfTheWeb(const QUrl& address);
/// The router URL that the tab has while it shows the address; empty when there is none.
QString MakeRouterUrl(const TabRecord& record, const QUrl& address);

} // namespace TabOpening
