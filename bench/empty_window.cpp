// What the toolkit itself takes: a full-screen window with nothing in it.
#include <QApplication>
#include <QWidget>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    window.showFullScreen();
    return QApplication::exec();
}
