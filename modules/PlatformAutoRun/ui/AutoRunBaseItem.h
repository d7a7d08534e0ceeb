#pragma once

#include "AutoRunInfoEntityPtr.h"

#include "base/IDpiAdapter.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QMetaType>

#include <memory>

namespace Ui {
class AutoRunBaseItem;
}

/// One entry of the auto-run configuration as a row of the settings page: check box, icon, text, the "Open
/// first" mark or button, and controls at its end. It changes `checked` and `activeItem` of the shared entry.
/// What else a click means is up to the receivers of its signals, each of which may destroy the row. GUI
/// thread. The order of the virtual operations is part of the contract, which is also why there are so many
/// members.
class AutoRunBaseItem : public SettingItemBaseWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    /// The values of `GetItemKind`. Not the `type` of an entry.
    static constexpr int KindBase = 0;
    static constexpr int KindHome = 1;
    static constexpr int KindSystem = 2;
    static constexpr int KindCustom = 3;
    static constexpr int KindPlugin = 4;

    explicit AutoRunBaseItem(QWidget* parent = nullptr);
    ~AutoRunBaseItem() override;

    /// Shows this entry from now on, or its changes. A row has an entry before it is shown; with null it
    /// keeps what it shows and does nothing.
    void SetData(const AutoRunInfoEntityPtr& entry);
    AutoRunInfoEntityPtr GetData() const;
    /// Empty without an entry.
    QString GetItemId() const;

    /// Whether the entry is the one to open first; false without an entry.
    bool IsActive() const;
    void SetActive(bool active);
    /// Ticks the entry and the box, without a signal.
    void SetChecked(bool checked);

    void SetKeyword(const QString& keyword) override;

    /// One of the kinds above.
    virtual int GetItemKind() const;
    /// Whether the user cannot untick the entry.
    virtual bool IsCheckLocked() const;
    /// The text of the row; empty without an entry.
    virtual QString GetShowText() const;
    /// The controls at the end of the row, owned by the row; null: none.
    virtual QWidget* GetOperateWidget();
    /// The icon before the text, up to date for the entry; owned by the row. Null: none.
    virtual QWidget* GetIconWidget();

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigEditItem(AutoRunBaseItem* pItemWidget);
    void SigDeleteItem(AutoRunBaseItem* pItemWidget);
    /// The user wants the entry to open first. Nothing has changed yet.
    void SigActiveItem(AutoRunBaseItem* pItemWidget);
    /// The user ticked or unticked the entry, which already has the change.
    void SigCheckItem(AutoRunBaseItem* pItemWidget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private Q_SLOTS:
    void SlotActiveBtnClicked();
    void SlotCheckChanged();

private:
    Q_DISABLE_COPY(AutoRunBaseItem)

    void ShowText();
    void Retranslate();

    std::unique_ptr<Ui::AutoRunBaseItem> m_ui;
    AutoRunInfoEntityPtr m_entry;
    QWidget* m_trailingWidget = nullptr;
    QString m_keyword;
};

Q_DECLARE_METATYPE(AutoRunBaseItem*)
