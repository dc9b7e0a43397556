// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ApplicationFolder.h"
#include "core/BuildInfo.h"
#include "core/WindowOptions.h"
#include "core/platform.h"
#include "core/txtReadWrite.h"
#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/frmMain.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QMessageBox>
#include <clocale>
#include <iostream>
#include <optional>
#include <string_view>

namespace {

std::optional<QString> AppDirArgument(const QStringList& arguments, QString* problem) {
    const qsizetype at = arguments.indexOf(QStringLiteral("--app-dir"));
    if (at < 0)
        return std::nullopt;
    if (at + 1 >= arguments.size()) {
        *problem = QStringLiteral("--app-dir needs a folder.");
        return std::nullopt;
    }
    return QDir(arguments[at + 1]).absolutePath();
}

} // namespace

int main(int argc, char** argv) {
    // Answered before the application object exists, which needs a display.
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]) == "--version") {
            std::cout << "orrindel " << buildInfo::Version << "\n";
            return 0;
        }
        if (std::string_view(argv[i]) == "--help") {
            windowOptions::WriteHelp(std::cout);
            return 0;
        }
    }
    QApplication app(argc, argv);
    Q_INIT_RESOURCE(orrindel);   // the resources live in the UI library
    std::setlocale(LC_TIME, ""); // protocol dates follow the user's locale
    QApplication::setApplicationName(QStringLiteral("orrindel"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/orrindel/orrindel.png")));
    QtDialogs dialogs;

    QString problem;
    const QString folder = AppDirArgument(QApplication::arguments(), &problem).value_or(QString());
    if (!problem.isEmpty()) {
        dialogs.ShowError(problem);
        return 1;
    }
    // The folder's path is used as the system spells it, never re-encoded.
    std::string appDir = text::CorePath(folder);
    if (appDir.empty()) {
        const auto choice = applicationFolder::Choose(platform::ExecutableFolder());
        appDir = choice.folder;
        if (!choice.problem.empty())
            dialogs.ShowError(text::DiskText(choice.problem));
    }
    txtReadWrite::SetApplicationDirectory(appDir);

    Session session;
    session.appDir = appDir;
    frmMain window(session, dialogs);
    dialogs.setParent(&window);
    window.show();
    return app.exec();
}
