#include <QtCore/QByteArray>
#include <QtWidgets/QApplication>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    // No display, no graphics card, and possibly root in a container: the engine runs without its sandbox,
    // in this test only.
    if (qEnvironmentVariableIsEmpty("QTWEBENGINE_CHROMIUM_FLAGS")) {
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--no-sandbox --disable-gpu --no-zygote");
    }
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    qputenv("QT_QUICK_BACKEND", "software");
    // CTest asks for the list of tests without the environment that it runs them in.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    ::testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
