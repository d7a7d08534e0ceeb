#include "base-ui/PackagedMsgBox.h"
#include "base/VXRouterProtocol.h"
#include "frame-core/ILifeCycle.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

namespace {

class LifeCycle final : public ILifeCycle
{};

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);

    LifeCycle lifeCycle;
    VXRouterProtocol route(QStringLiteral("tl://browser/open"));
    route.With(QStringLiteral("url"), QStringLiteral("https://x.test/?a=b"));

    const QTemporaryDir folder;
    const bool stored = VXSettingManager::Instance()->Open(folder.filePath(QStringLiteral("settings.db"))) &&
                        VXSettingManager::Instance()->SetGlobalValueSync(
                            QStringLiteral("s"), QStringLiteral("f"), QStringLiteral("value"));
    VXSettingManager::Instance()->Close();

    QTimer::singleShot(0, &application, [] {
        if (QWidget* const question = QApplication::activeModalWidget()) {
            question->close();
        }
    });
    const bool asked = PackagedMsgBox::question(QStringLiteral("Recover the tabs?")) == QMessageBox::No;

    const bool works =
        asked && lifeCycle.BeforeClose() == BeforeCloseResult::Close && stored &&
        route.GetUrl() == QStringLiteral("tl://browser/open?url=https%3A%2F%2Fx.test%2F%3Fa%3Db");
    return works ? 0 : 1;
}
