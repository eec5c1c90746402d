// What the toolkit itself takes: a full-screen window with nothing in it. A click opens a second
// one in another colour, which takes the place of the first.
#include <QApplication>
#include <QWidget>

namespace {

class First : public QWidget {
protected:
    void mouseReleaseEvent(QMouseEvent *) override
    {
        if (m_second != nullptr)
            return;
        m_second = new QWidget;
        QPalette light = m_second->palette();
        light.setColor(QPalette::Window, QColor(255, 255, 204));
        m_second->setPalette(light);
        m_second->showFullScreen();
        hide();
    }

private:
    QWidget *m_second = nullptr;
};

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    First window;
    window.showFullScreen();
    return QApplication::exec();
}
