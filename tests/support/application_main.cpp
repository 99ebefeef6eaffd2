#include "app/Application.h"

#include <QDir>
#include <QTemporaryDir>
#include <gmock/gmock.h>

// The program itself, off the screen, with a home and a name of its own, so that no other one is found.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir const home;
    for (char const* const name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        qputenv(name, home.path().toLocal8Bit());
    qputenv("APPIMAGE", home.filePath("program").toLocal8Bit());
    testing::InitGoogleMock(&argc, argv);
    int noArguments = 1;
    Application application(noArguments, argv, true, SingleApplication::PerUser, 1000);
    return RUN_ALL_TESTS();
}
