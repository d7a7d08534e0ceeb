#pragma once

#include "FakeSettingsRow.h"

#include "base/IDpiAdapter.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtWidgets/QLabel>

class QVBoxLayout;

/// A page with all that pages leave to the dialog: writes the whole list with every change, skips a write
/// while a call of its own is outstanding, passes the search word to rows only when it makes them, and after
/// a change of the scale shows what it read last.
class FakeSettingsPage final : public SettingItemBaseWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    FakeSettingsPage();
    ~FakeSettingsPage() override;

    void SetKeyword(const QString& word) override;
    void AdjustForDpi() override;

    /// The content of the list as the page shows it, in the form of `SlowGateway::stored`.
    QString GetContent() const;
    FakeSettingsRow* GetRow(int index) const { return m_rows.value(index); }
    int GetRowCount() const { return m_rows.size(); }

    QLabel* heading;
    QLabel* addLabel;
    QString keyword;
    int presses = 0; ///< of the label
    bool addsByDialog = false;
    QWidget* dialogParent = nullptr; ///< null: the page's own window
    int skipped = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Read();
    void Build(const QString& content);
    void AddRow(const QString& text, bool checked);
    void Save();

    QVBoxLayout* m_column;
    QVector<FakeSettingsRow*> m_rows;
    QString m_cache;
    bool m_busy = false;
};
