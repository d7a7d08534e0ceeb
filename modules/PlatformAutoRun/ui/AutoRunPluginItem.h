#pragma once

#include "ui/AutoRunBaseItem.h"

class AutoRunOperateWidget;
class ImageLabel;

/// The row of an app: shows the app list's icon, and can be edited and deleted.
class AutoRunPluginItem final : public AutoRunBaseItem
{
    Q_OBJECT

public:
    explicit AutoRunPluginItem(QWidget* parent = nullptr);
    ~AutoRunPluginItem() override;

    int GetItemKind() const override;
    QWidget* GetOperateWidget() override;
    QWidget* GetIconWidget() override;

private Q_SLOTS:
    void SlotEdit();
    void SlotDelete();

public Q_SLOTS:
    /// Empty when there is no app list, or the app is not in it.
    QString GetIconUrl() const;

private:
    Q_DISABLE_COPY(AutoRunPluginItem)

    AutoRunOperateWidget* m_operateWidget = nullptr; ///< made on first use
    ImageLabel* m_iconLabel = nullptr;               ///< made on first use
};
