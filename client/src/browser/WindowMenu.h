#pragma once

#include "look/Theme.h"

#include <QtCore/QString>
#include <QtWidgets/QMenu>

class QActionGroup;
class WindowActions;

/// The window's menu. Other parts of the client add entries of their own.
class WindowMenu final : public QMenu
{
    Q_OBJECT

public:
    /// `actions` outlives the menu.
    WindowMenu(const WindowActions& actions, QWidget* parent);

    /// What is shown as chosen. No signal.
    void SetTheme(Theme theme);
    void SetLanguage(const QString& language);

    /// Adds an entry above "Log out". Not owned.
    void AddEntry(QAction* entry);
    /// Adds an entry that opens tabs, below "Reopen closed tab". Not owned.
    void AddTabEntry(QAction* entry);
    /// Shows the menu below the widget, right edge under right edge.
    void PopUpBelow(const QWidget* anchor);
    void Retranslate();

Q_SIGNALS:
    void SigThemeChosen(Theme theme);
    void SigLanguageChosen(const QString& language);

private:
    void AddThemes();
    void AddLanguages();

    QMenu* m_zoomMenu = nullptr;
    QMenu* m_themeMenu = nullptr;
    QMenu* m_languageMenu = nullptr;
    QActionGroup* m_themes;
    QActionGroup* m_languages;
    QAction* m_tabGap = nullptr; // stands below the entries that open tabs
    QAction* m_gap = nullptr;    // stands below the other entries
};
