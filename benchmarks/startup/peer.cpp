// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>

int main(int argc, char **argv)
{
    // The same as the program does for itself: the cost of GL is not the
    // question here.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    const QApplication application(argc, argv);
    QMainWindow window;
    QMdiArea area;
    window.setCentralWidget(&area);
    window.showMaximized();
    const int status = QApplication::exec();
    window.takeCentralWidget();
    return status;
}
