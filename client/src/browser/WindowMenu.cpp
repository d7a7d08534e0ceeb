#include "WindowMenu.h"

#include "WindowActions.h"
#include "look/LanguageManager.h"
#include "look/Scaled.h"

#include <QtWidgets/QActionGroup>

namespace {

constexpr int Gap = 4; // below the anchor [px]

/// By the language's own name, whatever the present language is.
QString GetName(const QString& language)
{
    return language == QLatin1String("zh_CN") ? QStringLiteral("简体中文") : QStringLiteral("English");
}

} // namespace

WindowMenu::WindowMenu(const WindowActions& actions, QWidget* parent)
    : QMenu(parent), m_themes(new QActionGroup(this)), m_languages(new QActionGroup(this))
{
    setObjectName(QStringLiteral("main_menu"));
    addAction(actions.Get(WindowAction::NewTab));
    addAction(actions.Get(WindowAction::ReopenTab));
    m_tabGap = addSeparator();
    addAction(actions.Get(WindowAction::Find));
    m_zoomMenu = addMenu(QString());
    m_zoomMenu->addAction(actions.Get(WindowAction::ZoomIn));
    m_zoomMenu->addAction(actions.Get(WindowAction::ZoomOut));
    m_zoomMenu->addAction(actions.Get(WindowAction::ActualSize));
    addSeparator();
    AddThemes();
    AddLanguages();
    m_gap = addSeparator();
    addAction(actions.Get(WindowAction::LogOut));
    addAction(actions.Get(WindowAction::Quit));
    Retranslate();
}

void WindowMenu::SetTheme(Theme theme)
{
    const QList<QAction*> actions = m_themes->actions();
    for (QAction* action : actions) {
        action->setChecked(action->data().toInt() == static_cast<int>(theme));
    }
}

void WindowMenu::SetLanguage(const QString& language)
{
    const QList<QAction*> actions = m_languages->actions();
    for (QAction* action : actions) {
        action->setChecked(action->data().toString() == language);
    }
}

void WindowMenu::AddEntry(QAction* entry)
{
    insertAction(m_gap, entry);
}

void WindowMenu::AddTabEntry(QAction* entry)
{
    insertAction(m_tabGap, entry);
}

void WindowMenu::PopUpBelow(const QWidget* anchor)
{
    // Not left edge under left edge: the button stands at the right, and the menu would hang out of the
    // window.
    const QPoint corner = anchor->mapToGlobal(anchor->rect().bottomRight());
    popup(QPoint(corner.x() - sizeHint().width() + 1, corner.y() + Scaled(Gap)));
}

void WindowMenu::Retranslate()
{
    m_zoomMenu->setTitle(tr("&Zoom"));
    m_themeMenu->setTitle(tr("&Appearance"));
    m_languageMenu->setTitle(tr("&Language"));
    const QList<QAction*> themes = m_themes->actions();
    for (QAction* action : themes) {
        switch (static_cast<Theme>(action->data().toInt())) {
        case Theme::FollowSystem:
            action->setText(tr("Follow the system"));
            break;
        case Theme::Light:
            action->setText(tr("Light"));
            break;
        case Theme::Dark:
            action->setText(tr("Dark"));
            break;
        }
    }
}

void WindowMenu::AddThemes()
{
    m_themeMenu = addMenu(QString());
    for (const Theme theme : {Theme::FollowSystem, Theme::Light, Theme::Dark}) {
        QAction* action = m_themeMenu->addAction(QString());
        action->setCheckable(true);
        action->setData(static_cast<int>(theme));
        m_themes->addAction(action);
    }
    connect(m_themes, &QActionGroup::triggered, this, [this](const QAction* action) {
        Q_EMIT SigThemeChosen(static_cast<Theme>(action->data().toInt()));
    });
}

void WindowMenu::AddLanguages()
{
    m_languageMenu = addMenu(QString());
    const QStringList languages = LanguageManager::GetLanguages();
    for (const QString& language : languages) {
        QAction* action = m_languageMenu->addAction(GetName(language));
        action->setCheckable(true);
        action->setData(language);
        m_languages->addAction(action);
    }
    connect(m_languages, &QActionGroup::triggered, this,
            [this](const QAction* action) { Q_EMIT SigLanguageChosen(action->data().toString()); });
}
