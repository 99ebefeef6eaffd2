#include <QApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>

// Off the screen, unless another platform is asked for, and away from the preferences of whoever runs the tests.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir const home;
    for (char const* const name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
        qputenv(name, home.path().toLocal8Bit());
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
