#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argument_count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argument_count, arguments);
    const QGuiApplication application(argument_count, arguments);
    return RUN_ALL_TESTS();
}
