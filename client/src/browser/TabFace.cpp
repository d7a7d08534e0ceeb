#include "TabFace.h"

#include "TabOpening.h"
#include "look/SymbolicIcon.h"

#include <utility>

namespace {

constexpr int LongestTitle = 500;    // of a page [characters]
constexpr int LongestIconUrl = 2048; // that a record holds [characters]

} // namespace

TabFace::TabFace(const TabRecord& opened) : m_opened(opened), m_record(opened)
{
    if (m_record.routerUrl.isEmpty()) {
        m_record.routerUrl = TabOpening::MakeRouterUrl(opened, opened.address);
    }
    Update();
    m_iconRequest = m_record.iconUrl;
}

const TabRecord& TabFace::GetRecord() const noexcept
{
    return m_record;
}

TabRecord TabFace::GetReopenRecord() const
{
    TabRecord record = m_opened;
    record.routerUrl.clear(); // follows from the address
    record.title = GetOwnTitle();
    if (m_record.iconUrl != record.appIconUrl) {
        record.iconUrl = m_record.iconUrl;
    }
    if (TabOpening::IsOfTheWeb(m_record.address)) {
        record.address = m_record.address;
        record.trouble = TabRecord::Trouble::None;
    }
    record.delayed = m_record.delayed;
    return record;
}

QIcon TabFace::GetIcon() const
{
    if (m_opened.type == TabType::Home) {
        return SymbolicIcon::Make(QStringLiteral("home"));
    }
    if (!m_pageIcon.isNull()) {
        return m_pageIcon;
    }
    if (!m_openedIcon.isNull() && IsAsOpened()) {
        return m_openedIcon;
    }
    if (m_opened.trouble != TabRecord::Trouble::None && !m_record.address.isValid()) {
        return SymbolicIcon::Make(QStringLiteral("blocked"));
    }
    return SymbolicIcon::Make(m_opened.serviceCode.isEmpty() ? QStringLiteral("globe")
                                                             : QStringLiteral("app"));
}

void TabFace::SetDelayed(bool delayed)
{
    m_record.delayed = delayed;
}

void TabFace::SetApp(const TabRecord& app)
{
    const QString iconBefore = m_record.iconUrl;
    m_opened.address = app.address;
    m_opened.trouble = app.trouble;
    if (app.trouble != TabRecord::Trouble::UnknownApp) {
        m_opened.type = app.type;
        m_opened.appName = app.appName;
        m_opened.appIconUrl = app.appIconUrl;
        m_opened.text = app.text;
    }
    SetAddress(m_opened.address);
    Update();
    if (m_record.iconUrl != iconBefore) {
        m_openedIcon = QIcon();
        m_iconRequest = m_record.iconUrl;
    }
}

void TabFace::SetAddress(const QUrl& address)
{
    if (address == m_record.address) {
        return;
    }
    m_record.address = address;
    if (TabOpening::IsOfTheWeb(address)) {
        m_record.routerUrl = TabOpening::MakeRouterUrl(m_opened, address);
    }
    Update();
}

void TabFace::SetPageTitle(const QString& title)
{
    m_pageTitle = title.simplified().left(LongestTitle);
    Update();
}

void TabFace::SetPageIcon(const QUrl& url, const QIcon& icon)
{
    m_pageIconUrl = url;
    m_pageIcon = icon;
    Update();
}

void TabFace::Retranslate()
{
    Update();
}

QString TabFace::TakeIconRequest()
{
    return std::exchange(m_iconRequest, {});
}

void TabFace::SetOpenedIcon(const QIcon& icon)
{
    m_openedIcon = icon;
}

bool TabFace::IsAsOpened() const
{
    return m_record.address == m_opened.address || !m_opened.serviceCode.isEmpty();
}

QString TabFace::GetOwnTitle() const
{
    if (!m_pageTitle.isEmpty()) {
        return m_pageTitle;
    }
    return IsAsOpened() ? m_opened.title : QString();
}

QString TabFace::MakeTitle() const
{
    if (m_opened.type == TabType::Home) {
        return tr("Home");
    }
    QString own = GetOwnTitle();
    if (!own.isEmpty()) {
        return own;
    }
    if (!m_opened.appName.isEmpty()) {
        return m_opened.appName;
    }
    if (m_record.address.isValid()) {
        return m_record.address.host();
    }
    switch (m_opened.trouble) {
    case TabRecord::Trouble::RefusedAddress:
        return tr("Address not opened");
    case TabRecord::Trouble::UnknownApp:
        return tr("Unknown app");
    case TabRecord::Trouble::RefusedAppAddress:
        return tr("App not opened");
    case TabRecord::Trouble::None:
        break;
    }
    return m_opened.serviceCode.isEmpty() ? tr("New tab") : m_opened.serviceCode;
}

QString TabFace::MakeIconUrl() const
{
    // An icon may also stand in its own address, and be as large as it likes.
    if (m_pageIconUrl.scheme().startsWith(QLatin1String("http"))) {
        QString icon = QString::fromLatin1(m_pageIconUrl.toEncoded());
        if (icon.size() <= LongestIconUrl) {
            return icon;
        }
    }
    if (!IsAsOpened()) {
        return {};
    }
    return m_opened.iconUrl.isEmpty() ? m_opened.appIconUrl : m_opened.iconUrl;
}

void TabFace::Update()
{
    m_record.type = m_opened.type;
    m_record.appName = m_opened.appName;
    m_record.appIconUrl = m_opened.appIconUrl;
    m_record.trouble = m_opened.trouble;
    m_record.text = m_opened.text;
    m_record.title = MakeTitle();
    m_record.iconUrl = MakeIconUrl();
}
