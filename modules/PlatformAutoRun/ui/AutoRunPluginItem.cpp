#include "ui/AutoRunPluginItem.h"

#include "TLAutoRunLogic.h"
#include "ui/AutoRunOperateWidget.h"

#include "base/DpiTool.h"
#include "frame-data/TLPluginBaseManager.h"
#include "image-module/ImageLabel.h"

AutoRunPluginItem::AutoRunPluginItem(QWidget* parent) : AutoRunBaseItem(parent) {}

AutoRunPluginItem::~AutoRunPluginItem() = default;

int AutoRunPluginItem::GetItemKind() const
{
    return KindPlugin;
}

QWidget* AutoRunPluginItem::GetOperateWidget()
{
    if (m_operateWidget == nullptr) {
        m_operateWidget = new AutoRunOperateWidget(this);
        connect(m_operateWidget, &AutoRunOperateWidget::SigEdit, this, &AutoRunPluginItem::SlotEdit);
        connect(m_operateWidget, &AutoRunOperateWidget::SigDelete, this, &AutoRunPluginItem::SlotDelete);
    }
    return m_operateWidget;
}

QWidget* AutoRunPluginItem::GetIconWidget()
{
    if (m_iconLabel == nullptr) {
        const int size = DpiTool::ScaleDefault(16);
        const int mask = DpiTool::ScaleDefault(4);
        const int radius = size / mask; // 4 at every scale
        m_iconLabel = new ImageLabel(this);
        m_iconLabel->setFixedSize(size, size);
        m_iconLabel->SetPixmapParam(size, size, radius, radius);
        m_iconLabel->SetPluginMask(mask);
    }
    // An app without a picture shows none, even after another app's.
    m_iconLabel->SetImage(GetIconUrl(), QString());
    return m_iconLabel;
}

void AutoRunPluginItem::SlotEdit()
{
    Q_EMIT SigEditItem(this);
}

void AutoRunPluginItem::SlotDelete()
{
    Q_EMIT SigDeleteItem(this);
}

QString AutoRunPluginItem::GetIconUrl() const
{
    const TLPluginBaseManager* const plugins = TLAutoRunLogic::Instance()->GetPluginManager();
    const AutoRunInfoEntityPtr entry = GetData();
    if (plugins == nullptr || !entry) {
        return QString();
    }
    const auto plugin = plugins->GetPlugin(entry->url);
    return plugin ? plugin->GetIconUrl() : QString();
}
