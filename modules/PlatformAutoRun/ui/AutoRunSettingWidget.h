#pragma once

#include "AutoRunInfoEntityPtr.h"
#include "ui/AutoRunBaseItem.h"

#include "base/IDpiAdapter.h"
#include "frame-core/SettingItemBaseWidget.h"
#include "http/HttpObserverBase.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>

class QBoxLayout;

namespace Ui {
class AutoRunSettingWidget;
}

/// The settings page on which the user chooses what opens at start. It reads the configuration when it is
/// made, shows each entry as a row, and writes the whole configuration back after every single change; it
/// reports the result by `SigSaveSucceed` or `SigSaveFailed`. The rows share their entries with the logic's
/// cache. GUI thread.
///
/// A change during the page's own read or write is not written on its own; it goes out with the next one.
///
/// The page has many members because all edits of the list need the rows and the one busy flag.
class AutoRunSettingWidget final : public SettingItemBaseWidget, public HttpObserverBase, public IDpiAdapter
{
    Q_OBJECT

public:
    explicit AutoRunSettingWidget(QWidget* parent = nullptr);
    ~AutoRunSettingWidget() override;

    /// Highlights the word in the headings at once, and in the rows when they are next made.
    void SetKeyword(const QString& keyword) override;

    void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                      QSharedPointer<IHttpResponse> response) override;

    /// Makes the rows again from the logic's cache.
    void AdjustForDpi() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void SlotRefresh();
    void SlotAddBtnClicked();
    void SlotAddPluginBtnClicked();
    void SlotEditBtnClicked(AutoRunBaseItem* pItemWidget);
    void SlotDeleteBtnClicked(AutoRunBaseItem* pItemWidget);
    void SlotActiveBtnClicked(AutoRunBaseItem* pItemWidget);
    void SlotCheckBtnClicked(AutoRunBaseItem* pItemWidget);

private:
    Q_DISABLE_COPY(AutoRunSettingWidget)

    void AdjustLayoutForDpi();
    void Retranslate();

    void ClearRows();
    void BuildRows();
    /// Binds the row to the entry and appends it to the column and the list of rows.
    void AddRow(AutoRunBaseItem* row, const AutoRunInfoEntityPtr& entry, QBoxLayout* column);
    /// Connects all four signals of the row.
    void ConnectEditable(AutoRunBaseItem* row);
    void AddCustomRow(const AutoRunInfoEntityPtr& entry);
    void AddPluginRow(const AutoRunInfoEntityPtr& entry);
    void UpdateCustomCount(int count);
    void UpdatePluginCount(int count);

    int CountRows(int kind) const;
    QStringList GetPluginKeys() const;
    void SetActiveRow(AutoRunBaseItem* row);
    void SetActiveById(const QString& itemId);
    void SaveConfig();
    void EditCustomItem(AutoRunBaseItem* row);
    void EditPluginItem(AutoRunBaseItem* row);
    /// Takes over what a dialog wrote into `entry`, which the row of this kind had when the dialog opened. A
    /// null row has gone in the meantime.
    void TakeEdited(AutoRunBaseItem* row, int kind, const AutoRunInfoEntityPtr& entry);

    std::unique_ptr<Ui::AutoRunSettingWidget> m_ui;
    bool m_busy = false; ///< the page's own read or write is under way
    QString m_keyword;
    QList<AutoRunBaseItem*> m_rows; ///< home, system, custom, apps; owned by the two list widgets
};
