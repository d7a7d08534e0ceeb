#include "base-ui/TLMask.h"

#include "base-ui/TLMaskWidget.h"

namespace {

QList<TLMaskWidget*> MasksOf(const QWidget* window)
{
    return window->findChildren<TLMaskWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

TLMask* TLMask::Instance()
{
    static TLMask instance;
    return &instance;
}

TLMaskWidget* TLMask::InitMask(QWidget* window, QWidget* area)
{
    if (window == nullptr || area == nullptr || window->window() != area->window()) {
        return nullptr;
    }
    const QList<TLMaskWidget*> masks = MasksOf(window->window());
    for (TLMaskWidget* mask : masks) {
        if (mask->GetArea() == area) {
            return mask;
        }
    }
    return new TLMaskWidget(window->window(), area);
}

void TLMask::ShowMask(QWidget* dialog)
{
    if (dialog == nullptr || dialog->parentWidget() == nullptr) {
        return;
    }
    auto* mask = qobject_cast<TLMaskWidget*>(dialog->parentWidget());
    if (mask == nullptr) {
        mask = MasksOf(dialog->parentWidget()->window()).value(0);
    }
    if (mask != nullptr) {
        mask->ShowFor(dialog);
    }
}
