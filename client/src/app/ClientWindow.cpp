#include "ClientWindow.h"

#include "ClientAppearance.h"
#include "ClientMemory.h"
#include "ClientServices.h"

#include "base/DpiTool.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtWidgets/QAction>

ClientWindow::ClientWindow(PageEngine engine, const QString& profile, const QString& pin,
                           ClientAppearance* appearance, TLPluginBaseManager* plugins, QObject* parent)
    : QObject(parent)
    , m_pages(PageEngines::Make(engine, PagesFolder(profile, pin), appearance->GetLanguage()))
    , m_restart(new QAction(this))
{
    MainWindowServices services;
    services.pages = m_pages.get();
    services.apps = plugins;
    services.userName = pin;
    services.loadPicture = &ClientServices::LoadPicture;
    services.theme = appearance->GetTheme();
    services.language = appearance->GetLanguage();
    services.loadGeometry = &ClientMemory::GetWindowGeometry;
    services.saveGeometry = &ClientMemory::SetWindowGeometry;
    m_window = std::make_unique<MainWindow>(services);
    // The scale follows the screen that the window is on, which takes a native window.
    m_window->winId();
    DpiTool::FollowScreenOf(m_window->windowHandle());
    m_browserProvided = std::make_unique<Provided<IBrowserMain>>(m_window.get());
    m_openerProvided = std::make_unique<Provided<ITabOpener>>(m_window.get());

    connect(m_window.get(), &MainWindow::SigThemeChosen, appearance, &ClientAppearance::ChooseTheme);
    connect(m_window.get(), &MainWindow::SigLanguageChosen, appearance, &ClientAppearance::ChooseLanguage);
    connect(appearance, &ClientAppearance::SigThemeChanged, m_window.get(), &MainWindow::SetTheme);
    connect(appearance, &ClientAppearance::SigLanguageChanged, m_window.get(), &MainWindow::SetLanguage);
    connect(appearance, &ClientAppearance::SigLanguageChanged, m_pages.get(), &IPageFactory::SetLanguage);

    m_restart->setObjectName(QStringLiteral("restart_action"));
    connect(m_restart, &QAction::triggered, this, &ClientWindow::SigRestartRequested);
    connect(appearance, &ClientAppearance::SigLanguageChanged, this, &ClientWindow::Retranslate);
    Retranslate();
}

ClientWindow::~ClientWindow()
{
    m_openerProvided.reset();
    m_browserProvided.reset();
    m_window.reset(); // before the engine that draws its pages
}

void ClientWindow::Retranslate()
{
    m_restart->setText(tr("&Restart client"));
}

void ClientWindow::AddRestartAction()
{
    m_window->AddMenuAction(m_restart);
}

QString ClientWindow::PagesFolder(const QString& profile, const QString& pin)
{
    // A pin may contain characters that a file name must not.
    const QByteArray hash = QCryptographicHash::hash(pin.toUtf8(), QCryptographicHash::Sha256);
    return QDir(profile).filePath(QStringLiteral("pages/") + QString::fromLatin1(hash.toHex().left(32)));
}
