#include "TroubleNotices.h"

#include "gateway/GatewayWatch.h"
#include "notices/NoticeBoard.h"

#include "http/HttpCallReport.h"

#include <QtCore/QDir>

namespace {

const QString GatewayId = QStringLiteral("gateway");
const QString StartListId = QStringLiteral("start-list");

QString Join(const QString& sentence, const QString& detail)
{
    return detail.isEmpty() ? sentence : QStringLiteral("%1 (%2)").arg(sentence, detail);
}

} // namespace

TroubleNotices::TroubleNotices(NoticeBoard* notices, GatewayWatch* watch, QObject* parent)
    : QObject(parent), m_notices(notices), m_watch(watch)
{
    connect(watch, &GatewayWatch::SigLost, this, &TroubleNotices::ShowLost);
    connect(watch, &GatewayWatch::SigFound, this, [this] { m_notices->Hide(GatewayId); });
}

void TroubleNotices::HandleReport(const HttpCallReport& report)
{
    if (report.method != "dsm.tl.pc.auto.run.get") {
        return;
    }
    if (report.ok) {
        m_notices->Hide(StartListId);
        return;
    }
    m_notices->Show(StartListId, NoticeKind::Error, [description = report.description] {
        return Join(tr("The client could not read which pages and apps to open at start."), description);
    });
}

void TroubleNotices::ShowSaveFailed()
{
    m_notices->Show(QStringLiteral("keep-session"), NoticeKind::Warning, [] {
        return tr("The session could not be saved in the system's key store. You will have to log in again "
                  "next time.");
    });
}

void TroubleNotices::ShowStoreSetAside(const QString& setAsideFile, const QString& reason)
{
    m_notices->Show(QStringLiteral("store-set-aside"), NoticeKind::Warning, [setAsideFile, reason] {
        return Join(tr("The client could not use its settings file. The old file is kept as %1.")
                        .arg(QDir::toNativeSeparators(setAsideFile)),
                    reason);
    });
}

void TroubleNotices::HandleDamagedValue()
{
    ++m_damagedValues;
    m_notices->Show(QStringLiteral("store-values-damaged"), NoticeKind::Warning, [count = m_damagedValues] {
        return tr("Damaged settings were reset (%1). The originals are kept in the settings file.")
            .arg(count);
    });
}

void TroubleNotices::ShowStoreFailed(const QString& reason)
{
    m_notices->Show(QStringLiteral("store-failed"), NoticeKind::Error, [reason] {
        return Join(tr("The client cannot save its settings. Your changes will be lost when it closes."),
                    reason);
    });
}

void TroubleNotices::ShowLost(const QString& failure, bool fromCache)
{
    const NoticeBoard::Action again{[] { return tr("Try again"); }, [this] { m_watch->AskNow(); }};
    m_notices->Show(
        GatewayId, NoticeKind::Warning,
        [failure, fromCache] {
            return Join(fromCache ? tr("The gateway cannot be reached. You see the last known configuration.")
                                  : tr("The gateway cannot be reached."),
                        failure);
        },
        {again});
}
