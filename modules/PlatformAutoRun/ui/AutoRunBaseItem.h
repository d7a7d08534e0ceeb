#pragma once

#include "AutoRunInfoEntityPtr.h"

#include "base/IDpiAdapter.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QMetaType>

#include <memory>

namespace Ui {
class AutoRunBaseItem;
}

/// One entry of the auto-run configuration as a row of the settings page: check box, icon, text, the mark or
/// the button for being opened first, and controls at its end. It changes `checked` and `activeItem` of the
/// entry, which it shares; what a click means beyond that is for the receivers of its signals, each of which
/// may destroy the row. GUI thread. The order of the virtual operations is part of the contract.
class AutoRunBaseItem : public SettingItemBaseWidget, public IDpiAdapter
{
    Q_OBJECT

public:
    /// What `GetItemKind` answers. Not the `type` of an entry.
    static constexpr int KindBase = 0;
    static constexpr int KindHome = 1;
    static constexpr int KindSystem = 2;
    static constexpr int KindCustom = 3;
    static constexpr int KindPlugin = 4;

    explicit AutoRunBaseItem(QWidget* parent = nullptr);
    ~AutoRunBaseItem() override;

    /// Shows this entry from now on, or what has changed in it. A row has one before it is shown; with null
    /// it keeps what it shows and does nothing.
    void SetData(const AutoRunInfoEntityPtr& entry);
    AutoRunInfoEntityPtr GetData() const;
    /// Empty without an entry.
    QString GetItemId() const;

    /// Whether the entry is the one to open first; false without an entry.
    bool IsActive() const;
    void SetActive(bool active);
    /// Ticks the entry and the box. No signal.
    void SetChecked(bool checked);

    void SetKeyword(const QString& keyword) override;

    /// One of the kinds above.
    virtual int GetItemKind() const;
    /// Whether the entry is ticked for good.
    virtual bool IsCheckLocked() const;
    /// The text of the row; empty without an entry.
    virtual QString GetShowText() const;
    /// The controls at the end of the row, which own themselves to it; null: none.
    virtual QWidget* GetOperateWidget();
    /// The icon before the text, as it is for the entry at this moment; owned by the row. Null: none.
    virtual QWidget* GetIconWidget();

    void AdjustForDpi() override;

Q_SIGNALS:
    void SigEditItem(AutoRunBaseItem* pItemWidget);
    void SigDeleteItem(AutoRunBaseItem* pItemWidget);
    /// The user wants the entry to be opened first. Nothing has changed yet.
    void SigActiveItem(AutoRunBaseItem* pItemWidget);
    /// The user ticked the entry or took the tick away, which is in the entry already.
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
