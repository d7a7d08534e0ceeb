#include "TabMessages.h"

#include "pages/AddressInput.h"
#include "pages/PageFailure.h"

MessageContent TabMessages::MakeStartPage()
{
    return {QStringLiteral("globe"), tr("New tab"), tr("Type a web address above and press Enter.")};
}

MessageContent TabMessages::MakeNativeApp(const TabRecord& tab)
{
    MessageContent content;
    content.icon = QStringLiteral("app");
    content.headline = tab.title;
    content.text =
        tr("This app is a separate program and has no web address. This client does not include it.");
    content.detail = tr("App: %1").arg(tab.serviceCode);
    return content;
}

MessageContent TabMessages::MakeTrouble(const TabRecord& tab)
{
    MessageContent content;
    content.icon = QStringLiteral("blocked");
    switch (tab.trouble) {
    case TabRecord::Trouble::UnknownApp:
        content.headline = tr("Unknown app");
        content.text =
            tr("Your list of apps has no app with this key. Your account may no longer include it.");
        content.address = tab.serviceCode;
        break;
    case TabRecord::Trouble::RefusedAppAddress:
        content.headline = tr("This app cannot be opened");
        content.text = tr("This client cannot open the app's address. It opens only web addresses "
                          "that begin with http:// or https://.");
        content.address = tab.text;
        content.detail = tr("App: %1").arg(tab.serviceCode);
        break;
    case TabRecord::Trouble::RefusedAddress:
    case TabRecord::Trouble::None:
        content.headline = tr("This address was not opened");
        content.text =
            tab.text.trimmed().isEmpty()
                ? tr("The address is empty.")
                : tr("This client opens only web addresses that begin with http:// or https:// and "
                     "contain no user name or password.");
        content.address = tab.text;
        break;
    }
    return content;
}

MessageContent TabMessages::MakeRendererDied(const QUrl& address)
{
    MessageContent content;
    content.icon = QStringLiteral("crashed");
    content.headline = tr("This page has stopped working");
    content.text = tr("The process that shows the page ended unexpectedly. Other tabs are not "
                      "affected. What you typed into the page may be lost.");
    content.address = AddressInput::ToDisplay(address);
    content.button = tr("Reload");
    return content;
}

MessageContent TabMessages::MakeFailure(const PageFailure& failure)
{
    const QString host = failure.url.host();
    QString icon = QStringLiteral("unplugged");
    QString headline = tr("This page could not be loaded");
    QString text;
    switch (failure.kind) {
    case PageFailure::Kind::HostNotFound:
        headline = tr("The site was not found");
        text = tr("There is no site named “%1”. Check the address for typing errors.").arg(host);
        break;
    case PageFailure::Kind::ConnectionRefused:
        headline = tr("The site refused the connection");
        text =
            tr("“%1” can be reached, but nothing answers there. The site may be down for a while.").arg(host);
        break;
    case PageFailure::Kind::TimedOut:
        headline = tr("The site took too long to answer");
        text = tr("“%1” may be busy or out of reach. Try again in a moment.").arg(host);
        break;
    case PageFailure::Kind::Certificate:
        icon = QStringLiteral("not-secure");
        headline = tr("The connection is not safe");
        text = tr("No safe connection to “%1” could be made: its certificate is not valid, or it does not "
                  "support the required encryption. The page was not loaded. If this is a site of your "
                  "company, tell its operator.")
                   .arg(host);
        break;
    case PageFailure::Kind::NoNetwork:
        headline = tr("There is no network connection");
        text = tr("Check the network cable or the wireless connection, then try again.");
        break;
    case PageFailure::Kind::ConnectionLost:
        headline = tr("The connection was lost");
        text = tr("“%1” ended the connection before the page was complete, or sent something that is not a "
                  "web page.")
                   .arg(host);
        break;
    case PageFailure::Kind::TooManyRedirects:
        headline = tr("The page redirects in a circle");
        text = tr("“%1” kept redirecting without ever showing a page.").arg(host);
        break;
    case PageFailure::Kind::HttpError:
        icon = QStringLiteral("warning");
        headline = tr("The site reported an error");
        text = tr("“%1” was reached, but cannot show this page.").arg(host);
        break;
    case PageFailure::Kind::Blocked:
        icon = QStringLiteral("blocked");
        headline = tr("This address was not opened");
        text = tr("The client does not connect to this address.");
        break;
    case PageFailure::Kind::Unknown:
        text = tr("“%1” could not be shown. Try again in a moment.").arg(host);
        break;
    }
    return {icon, headline, text, AddressInput::ToDisplay(failure.url), failure.detail, tr("Try again")};
}
