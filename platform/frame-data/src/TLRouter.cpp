#include "frame-data/TLRouter.h"

#include "frame-data/ITabOpener.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TabOpenInfo.h"

#include <QtCore/QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(logRouter, "tl.router")

ITabOpener* OpenerOrWarning()
{
    ITabOpener* opener = ITabOpener::Provided();
    if (!opener) {
        qCWarning(logRouter, "No tab opener is provided; the request is dropped.");
    }
    return opener;
}

} // namespace

void TLRouter::OpenPlugin(const PluginOpenInfo& info, int index)
{
    if (ITabOpener* opener = OpenerOrWarning()) {
        opener->OpenPlugin(info, index);
    }
}

void TLRouter::OpenUrlWithNewTab(const QString& address, bool closable, bool isDelay, int index,
                                 bool activate, const QString& title, bool remember)
{
    ITabOpener* opener = OpenerOrWarning();
    if (!opener) {
        return;
    }
    TabOpenInfo info;
    info.address = address;
    info.title = title;
    info.closable = closable;
    info.isDelay = isDelay;
    info.activate = activate;
    info.remember = remember;
    opener->OpenUrl(info, index);
}
