// Shows the main window with a made-up app list, for a look by hand. Not a test and not installed.
//
//   BrowserPreview [--theme light|dark] [--language en|zh_CN] [--notices] [--delayed <count>]
//                  [--scale <percent>[,<percent>...]] [--earlier <sets>] [--question] [--site-log-in]
//                  [--list] [<address>...]
//
// --earlier opens the dialog of earlier tabs with this many sets, --question a page's question, --site-log-in
// a site's request for a log-in, and --list the list of all tabs. With several scales, each applies for two
// seconds and the last one stays. Opens each address in a tab and selects the last one; "app:<code>" opens an
// app. As root it needs QTWEBENGINE_DISABLE_SANDBOX=1 and, without a graphics card,
// QTWEBENGINE_CHROMIUM_FLAGS="--disable-gpu".

#include "EarlierTabsDialog.h"
#include "PageEngines.h"
#include "browser/MainWindow.h"
#include "look/LanguageManager.h"
#include "look/ScaleManager.h"
#include "look/ThemeManager.h"
#include "notices/NoticeBar.h"
#include "pages/PageDialog.h"

#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TabOpenInfo.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolButton>

namespace {

QSharedPointer<TLPluginBaseEntity> MakeApp(const QString& name, const QString& code, const QString& address)
{
    auto app = QSharedPointer<TLPluginBaseEntity>::create();
    app->setProperty("name", name);
    app->setProperty("serviceCode", code);
    app->setProperty("address", address);
    app->setProperty("iconUrl", QStringLiteral("https://icons.example/%1.png").arg(code));
    return app;
}

/// A coloured letter in place of the picture at this address.
QPixmap MakePicture(const QString& url)
{
    QPixmap picture(128, 128);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv(int(qHash(url) % 360), 120, 190));
    painter.drawRoundedRect(4, 4, 120, 120, 28, 28);
    QFont font;
    font.setPixelSize(64);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(picture.rect(), Qt::AlignCenter, url.section(QLatin1Char('/'), -1).left(1).toUpper());
    return picture;
}

TabRecord MakeTab(const QString& title, const QString& address)
{
    TabRecord tab;
    tab.routerUrl = QStringLiteral("tl://browser/open?url=") + address;
    tab.title = title;
    tab.iconUrl = address + QStringLiteral("icon.png");
    tab.address = QUrl(address);
    return tab;
}

QVector<EarlierTabSet> MakeEarlierSets(int count)
{
    const EarlierTabSet::Reason reasons[] = {
        EarlierTabSet::Reason::Declined, EarlierTabSet::Reason::Offered, EarlierTabSet::Reason::NotRestored,
        EarlierTabSet::Reason::Unreadable, EarlierTabSet::Reason::Dropped};
    QVector<EarlierTabSet> sets;
    for (int i = 0; i < count; ++i) {
        EarlierTabSet set;
        set.when = QDateTime::currentDateTime().addSecs(-3600LL * (1 + 17 * i));
        set.reason = reasons[i % 5];
        set.incomplete = set.reason == EarlierTabSet::Reason::Unreadable;
        set.tabs = {
            MakeTab(QStringLiteral("Orders of today"),
                    QStringLiteral("https://shop.example/orders?day=today")),
            MakeTab(QStringLiteral("<b>A title</b> that is by far too long to be shown in one line of a "
                                   "dialog, whatever the size of the window"),
                    QStringLiteral("https://supplier.example/a/very/long/path/to/a/page/that/nobody/"
                                   "reads/in/full?with=parameters&and=more&of=them#and-a-fragment")),
            TabRecord{QStringLiteral("tl://plugin/open?code=c"), QStringLiteral("客服工作台"),
                      QStringLiteral("https://icons.example/service.png"), TabType::WebApp},
            MakeTab(QString(), QStringLiteral("https://no-title.example/"))};
        for (int tab = 0; tab < (i == 1 ? 1000 : 8); ++tab) {
            set.tabs.append(MakeTab(QStringLiteral("Shop number %1").arg(tab),
                                    QStringLiteral("https://shop-%1.example/").arg(tab)));
        }
        sets.append(set);
    }
    return sets;
}

/// The command line.
struct Options
{
    explicit Options(const QCoreApplication& application);

    QString theme;
    QString language;
    QList<int> scales; ///< [%]
    int delayed = 0;
    int earlierSets = 0;
    bool notices = false;
    bool question = false;
    bool siteLogIn = false;
    bool list = false;
    QStringList addresses;
};

Options::Options(const QCoreApplication& application)
{
    QCommandLineParser parser;
    const auto option = [&parser](const QString& name, const QString& value = QString()) {
        const QCommandLineOption added(name, QString(), value);
        parser.addOption(added);
        return added;
    };
    const auto themeOption = option(QStringLiteral("theme"), QStringLiteral("name"));
    const auto languageOption = option(QStringLiteral("language"), QStringLiteral("name"));
    const auto scaleOption = option(QStringLiteral("scale"), QStringLiteral("percents"));
    const auto delayedOption = option(QStringLiteral("delayed"), QStringLiteral("count"));
    const auto earlierOption = option(QStringLiteral("earlier"), QStringLiteral("sets"));
    const auto noticesOption = option(QStringLiteral("notices"));
    const auto questionOption = option(QStringLiteral("question"));
    const auto siteLogInOption = option(QStringLiteral("site-log-in"));
    const auto listOption = option(QStringLiteral("list"));
    parser.addPositionalArgument(QStringLiteral("address"), QString());
    parser.process(application);

    theme = parser.value(themeOption);
    language = parser.value(languageOption);
    const QStringList percents = parser.value(scaleOption).split(QLatin1Char(','));
    for (const QString& percent : percents) {
        scales.append(percent.toInt()); // ScaleManager replaces what is not a scale by 100
    }
    delayed = parser.value(delayedOption).toInt();
    earlierSets = parser.value(earlierOption).toInt();
    notices = parser.isSet(noticesOption);
    question = parser.isSet(questionOption);
    siteLogIn = parser.isSet(siteLogInOption);
    list = parser.isSet(listOption);
    addresses = parser.positionalArguments();
}

Theme ToTheme(const QString& name)
{
    if (name == QLatin1String("dark")) {
        return Theme::Dark;
    }
    return name == QLatin1String("light") ? Theme::Light : Theme::FollowSystem;
}

QList<QSharedPointer<TLPluginBaseEntity>> MakeApps()
{
    const QStringList names = {QStringLiteral("Orders"),
                               QStringLiteral("Stock"),
                               QStringLiteral("Customer service"),
                               QStringLiteral("Returns and refunds"),
                               QStringLiteral("Invoices"),
                               QStringLiteral("Marketing campaigns of the season"),
                               QStringLiteral("Reports"),
                               QStringLiteral("客服工作台"),
                               QStringLiteral("Settings of the shop"),
                               QStringLiteral("Print station")};
    QList<QSharedPointer<TLPluginBaseEntity>> apps;
    for (const QString& name : names) {
        apps << MakeApp(name, name,
                        name == QLatin1String("Print station") ? QString()
                                                               : QStringLiteral("http://127.0.0.1:8000/"));
    }
    return apps;
}

void OpenTabs(MainWindow& window, const Options& options)
{
    for (int i = 0; i < options.delayed; ++i) {
        TabOpenInfo info;
        info.address = QStringLiteral("https://shop-%1.example/").arg(i);
        info.title = QStringLiteral("Shop number %1").arg(i);
        info.iconUrl = QStringLiteral("https://icons.example/%1").arg(i % 26);
        info.isDelay = true;
        window.OpenUrl(info, -1);
    }
    for (const QString& address : options.addresses) {
        if (address.startsWith(QLatin1String("app:"))) {
            PluginOpenInfo info;
            info.serviceCode = address.mid(4);
            window.OpenPlugin(info, -1);
            continue;
        }
        TabOpenInfo info;
        info.address = address;
        window.OpenUrl(info, -1);
    }
    window.SelectTab(window.GetTabCount() - 1);
}

void ShowNotices(NoticeBar* bar)
{
    bar->Show(QStringLiteral("a"), NoticeKind::Info,
              QStringLiteral(
                  "The last known configuration is being shown, because the service cannot be reached."));
    bar->Show(QStringLiteral("b"), NoticeKind::Warning,
              QStringLiteral("The settings file could not be read and was set aside."),
              {{QStringLiteral("Show in folder"), {}}});
    bar->Show(QStringLiteral("c"), NoticeKind::Error,
              QStringLiteral("report.pdf could not be saved: the disk is full."));
    bar->SetProgress(QStringLiteral("a"), 40);
}

void OpenDialogs(MainWindow& window, const Options& options, const MainWindowServices& services)
{
    if (options.earlierSets > 0) {
        auto* dialog =
            new EarlierTabsDialog(MakeEarlierSets(options.earlierSets), services.loadPicture, &window);
        dialog->open();
    }
    if (options.question) {
        auto* dialog = new PageDialog(
            PageDialog::Kind::Prompt, QUrl(QStringLiteral("https://shop.example/")),
            QStringLiteral("Which of the orders of today should be sent to the supplier, and to whom should "
                           "the invoice go?"),
            QStringLiteral("All of them"), true, &window);
        dialog->open();
    }
    if (options.siteLogIn) {
        auto* dialog = new PageDialog(PageDialog::Kind::LogIn, QUrl(QStringLiteral("http://stock.example/")),
                                      QStringLiteral("Stock of the warehouse"), QString(), false, &window);
        dialog->open();
    }
    if (options.list) {
        constexpr int drawTime = 500; // [ms]
        QTimer::singleShot(drawTime, &window, [&window] {
            window.findChild<QToolButton*>(QStringLiteral("strip_list"))->click();
        });
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Workstation"));
    const Options options(application);

    ScaleManager scales;
    ThemeManager themes;
    scales.Apply(options.scales.first());
    themes.Apply(ToTheme(options.theme));
    LanguageManager languages(QCoreApplication::applicationDirPath() +
                              QStringLiteral("/../bin/translations"));
    languages.Apply(options.language);
    TLPluginBaseManager apps;
    apps.SetPlugins(MakeApps());

    QTemporaryDir folder;
    const auto pages = PageEngines::Make(PageEngines::GetBest(), folder.path(), languages.GetLanguage());
    MainWindowServices services;
    services.pages = pages.get();
    services.apps = &apps;
    services.userName = QStringLiteral("Anna Keller");
    services.theme = themes.GetTheme();
    services.language = languages.GetLanguage();
    services.loadPicture = [](const QString& url, QObject*, const std::function<void(const QPixmap&)>& done) {
        done(MakePicture(url));
    };
    MainWindow window(services);
    QObject::connect(&window, &MainWindow::SigThemeChosen, &themes, &ThemeManager::Apply);
    QObject::connect(&window, &MainWindow::SigLanguageChosen, &languages, &LanguageManager::Apply);

    OpenTabs(window, options);
    if (options.notices) {
        ShowNotices(window.GetNoticeBar());
    }
    window.show();
    OpenDialogs(window, options, services);
    constexpr int shownFor = 2000; // [ms]
    for (int i = 1; i < options.scales.size(); ++i) {
        QTimer::singleShot(i * shownFor, &scales,
                           [&scales, &options, i] { scales.Apply(options.scales.at(i)); });
    }
    return QApplication::exec();
}
