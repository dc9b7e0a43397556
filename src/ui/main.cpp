#include "core/txtReadWrite.h"
#include "ui/Dialogs.h"
#include "ui/Session.h"
#include "ui/Text.h"
#include "ui/frmMain.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QMessageBox>
#include <clocale>
#include <optional>

namespace {

// The user's own data folder: $XDG_DATA_HOME/orrindel, by default ~/.local/share/orrindel.
QString UserDataFolder() {
    QString base = qEnvironmentVariable("XDG_DATA_HOME");
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.local/share");
    return base + QStringLiteral("/orrindel");
}

// Copies the shipped library into a folder that does not have one yet.
bool SeedLibrary(const QString& shipped, const QString& target) {
    if (QFileInfo::exists(target) || !QFileInfo(shipped).isDir())
        return true;
    bool ok = QDir().mkpath(target);
    QDirIterator it(shipped, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    while (ok && it.hasNext()) {
        const QString source = it.next();
        const QString destination =
            target + QLatin1Char('/') + QDir(shipped).relativeFilePath(source);
        ok = it.fileInfo().isDir() ? QDir().mkpath(destination) : QFile::copy(source, destination);
    }
    return ok;
}

// Next to the program when it may write there (a copy unpacked or built in place); an
// installed copy keeps its projects in the user's data folder, seeded from share/orrindel.
QString ApplicationFolder(QString* problem) {
    const QString exeDir = QCoreApplication::applicationDirPath();
    const QString installed = QDir::cleanPath(exeDir + QStringLiteral("/../share/orrindel/data"));
    const bool isInstalled =
        QFileInfo(installed).isDir() && !QFileInfo::exists(exeDir + QStringLiteral("/data"));
    if (QFileInfo(exeDir).isWritable() && !isInstalled)
        return exeDir;
    const QString user = UserDataFolder();
    const QString shipped = isInstalled ? installed : exeDir + QStringLiteral("/data");
    if (!SeedLibrary(shipped, user + QStringLiteral("/data")))
        *problem = QStringLiteral("The original faction library could not be copied from %1 to %2.")
                       .arg(shipped, user + QStringLiteral("/data"));
    return user;
}

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
    const QString appDir = folder.isEmpty() ? ApplicationFolder(&problem) : folder;
    if (!problem.isEmpty())
        dialogs.ShowError(problem);
    QDir().mkpath(appDir + QStringLiteral("/projects"));

    const auto appDirBytes = text::ToFileExact(QDir::toNativeSeparators(appDir));
    if (!appDirBytes) {
        dialogs.ShowError(
            QStringLiteral("The application folder %1 holds a character that file names of "
                           "this program cannot hold.")
                .arg(appDir));
        return 1;
    }
    txtReadWrite::SetApplicationDirectory(*appDirBytes);

    Session session;
    session.appDir = *appDirBytes;
    frmMain window(session, dialogs);
    dialogs.setParent(&window);
    window.show();
    return app.exec();
}
