#include <QApplication>
#include <QMainWindow>
#include <clocale>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    std::setlocale(LC_TIME, "");
    QMainWindow window;
    window.setWindowTitle("Orrindel 2.0 beta 2 || Halvex");
    window.show();
    return app.exec();
}
