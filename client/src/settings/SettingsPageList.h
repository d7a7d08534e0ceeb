#pragma once

#include "settings/SettingsPageEntry.h"

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

class QLabel;
class QListWidget;
class TLLineEdit;

/// The list of the settings pages with the search over it, by mouse and keyboard. GUI thread.
class SettingsPageList final : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsPageList(QWidget* parent = nullptr);
    ~SettingsPageList() override;

    /// Lists these pages, empties the search and shows the page at `current`; -1: the first one.
    void SetEntries(const QVector<SettingsPageEntry>& entries, int current);
    /// Empties the search and chooses the page if it is listed.
    void Choose(SettingWidgetId id);

    /// What the user looks for; empty: nothing.
    QString GetKeyword() const;
    void FocusSearch();
    void FocusList();

    /// Follows the scale.
    void Adjust();
    /// Retranslates all texts.
    void Retranslate();

Q_SIGNALS:
    /// The page at this place of the entries comes to the front, or the keyword has changed.
    void SigShown(int entry);
    /// The user has chosen this page in the list, not by a search. Comes after `SigShown`.
    void SigChosen(int entry);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Search();
    int AddLines();
    void ShowCurrent();

    TLLineEdit* m_search;
    QLabel* m_nothing;
    QListWidget* m_list;
    QVector<SettingsPageEntry> m_entries;
    int m_current = -1; ///< the entry that is shown
};
