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

/// The main window of one session and the engine that draws its pages. Provides the window as the browser
/// for the life of this object. Each user has a folder for cookies and page storage. GUI thread.
class ClientWindow final : public QObject
{
    Q_OBJECT

public:
    /// Builds the window without showing it. `appearance` and `plugins` are not owned.
    ClientWindow(PageEngine engine, const QString& profile, const QString& pin, ClientAppearance* appearance,
                 TLPluginBaseManager* plugins, QObject* parent = nullptr);
    ~ClientWindow() override;

    MainWindow* GetWindow() const { return m_window.get(); }

    /// Makes the pages; lives as long as this object.
    IPageFactory* GetPages() const { return m_pages.get(); }

    /// Adds "Restart client" at the end of the menu.
    void AddRestartAction();

    /// The folder for a user's cookies and page storage.
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
