#pragma once

#include "PageEngines.h"
#include "browser/MainWindow.h"

#include "base/Provided.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class ClientAppearance;
class QAction;
class TLPluginBaseManager;

/// The main window of one session with what it draws its pages with, provided as the browser for as long
/// as this object lives. The user's cookies and page storage stand in a folder of the user's own.
/// GUI thread.
class ClientWindow final : public QObject
{
    Q_OBJECT

public:
    /// Makes the window without showing it. `appearance` and `plugins` are not owned.
    ClientWindow(PageEngine engine, const QString& profile, const QString& pin, ClientAppearance* appearance,
                 TLPluginBaseManager* plugins, QObject* parent = nullptr);
    ~ClientWindow() override;

    MainWindow* GetWindow() const { return m_window.get(); }

    /// What draws the pages; lives as long as this object.
    IPageFactory* GetPages() const { return m_pages.get(); }

    /// Adds "Restart client" to the menu, below what is there.
    void AddRestartAction();

    /// The folder of a user's pages.
    static QString PagesFolder(const QString& profile, const QString& pin);

Q_SIGNALS:
    void SigRestartRequested();

private:
    void Retranslate();

    std::unique_ptr<IPageFactory> m_pages;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Provided<IBrowserMain>> m_browserProvided;
    std::unique_ptr<Provided<ITabOpener>> m_openerProvided;
    QAction* m_restart;
};
