#pragma once

#include "settings/SettingsServices.h"

#include "modules/LoadedModule.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <vector>

class ClientAppearance;
class ClientServices;
class IPageFactory;
class SavedSession;
class MainWindow;
class QAction;
class SettingsDialog;

/// "Settings…" in the menu of the main window: one dialog at a time, with the client's own pages and those
/// of the modules. Must be destroyed before the window and before the modules unload. GUI thread.
class ClientSettings final : public QObject
{
    Q_OBJECT

public:
    /// The objects are not owned.
    ClientSettings(MainWindow* window, IPageFactory* pages, ClientAppearance* appearance,
                   ClientServices* services, SavedSession* savedSession, std::vector<LoadedModule> modules,
                   QObject* parent = nullptr);
    ~ClientSettings() override;

    void Show();
    bool IsOpen() const;
    /// Call when the gateway answers again: pages that show the last known configuration reload.
    void LoadAgain();
    /// Closes the dialog when all changes are answered; a second call closes it immediately.
    void Close();

Q_SIGNALS:
    /// See `SettingsDialog`.
    void SigPageReady(const QString& page, bool cached);
    /// The dialog has left the screen.
    void SigClosed();

private:
    SettingsServices GetServices();
    void Retranslate();

    MainWindow* m_window;
    IPageFactory* m_pages;
    ClientAppearance* m_appearance;
    ClientServices* m_services;
    SavedSession* m_savedSession;
    std::vector<LoadedModule> m_modules;
    QAction* m_action;
    QPointer<SettingsDialog> m_dialog;
};
