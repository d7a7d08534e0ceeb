#include "PlatformAutoRunSettingFactory.h"

#include "AutoRunInfoEntity.h"
#include "AutoRunRouterUrls.h"
#include "TLAutoRunLogic.h"
#include "ui/AutoRunSettingWidget.h"

#include "base/VXRouterProtocol.h"
#include "frame-data/TLFunctionData.h"

namespace {

constexpr SettingWidgetId PageId(10, 60);
constexpr int FunctionNumber = 8;

/// The operator's switch for this function; neither valid nor displayed while there are no switches.
TLFunctionInfo GetFunction()
{
    const VXRouterProtocol route(AutoRunRouterUrls::FunctionsObject());
    const auto* const functions = qobject_cast<TLFunctionData*>(route.GetObj());
    return functions != nullptr ? functions->GetFunctionInfo(FunctionNumber) : TLFunctionInfo();
}

void AppendUnlessEmpty(QStringList& words, const QString& word)
{
    if (!word.isEmpty()) {
        words.append(word);
    }
}

} // namespace

PlatformAutoRunSettingFactory::PlatformAutoRunSettingFactory() = default;

PlatformAutoRunSettingFactory::~PlatformAutoRunSettingFactory() = default;

QList<SettingWidgetId> PlatformAutoRunSettingFactory::GetSettingWidgetIds()
{
    return GetFunction().IsDisplay() ? QList<SettingWidgetId>{PageId} : QList<SettingWidgetId>();
}

SettingItemBaseWidget* PlatformAutoRunSettingFactory::CreateSettingWidget(SettingWidgetId id)
{
    return id == PageId ? new AutoRunSettingWidget : nullptr;
}

QStringList PlatformAutoRunSettingFactory::GetSearchKeywords(SettingWidgetId id)
{
    const TLFunctionInfo function = GetFunction();
    if (!function.IsDisplay() || !function.IsValid() || id != PageId) {
        return {};
    }
    QList<AutoRunInfoEntityPtr> systemItems;
    QList<AutoRunInfoEntityPtr> customItems;
    QList<AutoRunInfoEntityPtr> pluginItems;
    TLAutoRunLogic::Instance()->GetAutoRunCollection(systemItems, customItems, pluginItems);

    QStringList words{tr("Homepage"), tr("Set the URL that opens when you start it"), tr("+custom URL"),
                      tr("Set the App that opens when you start it"), tr("+Add App")};
    const QList<AutoRunInfoEntityPtr> namedItems = systemItems + pluginItems;
    for (const AutoRunInfoEntityPtr& entry : namedItems) {
        AppendUnlessEmpty(words, entry->name);
    }
    for (const AutoRunInfoEntityPtr& entry : qAsConst(customItems)) {
        AppendUnlessEmpty(words, entry->url);
    }
    return words;
}
