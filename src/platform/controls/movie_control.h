// Shows one movie, a figure or a reward, and steers it from outside. Calls before a movie is loaded
// are lost silently.
#pragma once

#include "platform/controls/visual_control.h"

#include "platform/host/host.h"

class QMouseEvent;
class QPointF;

namespace platform {

class MovieReader;
class MovieView;

class MovieControl : public VisualControl {
public:
    MovieControl(const ControlId &id, const Place &place);
    ~MovieControl() override;

    // Loads and starts the movie in the place of what is shown; paint and visibility go. A movie
    // that is not there, or that no reader knows, leaves the control empty.
    void SetMovie(const QString &path);
    const QString &Movie() const { return m_path; }
    // 0 and 1: the whole figure takes the click, with the window's pointer (0) or a hand (1); 2 and
    // 3: its parts, with a hand over what takes a click (2) or the window's pointer (3).
    void GotoFrame(int frame);
    // RRGGBB; belongs to the control and outlives the movie.
    void SetBGColor(const QString &color);
    QString BGColor() const { return m_bgColor; }
    // "QualeOggetto" names an object, "TestoColore.QualeColore" then paints it.
    void SetVariable(const QString &name, const QString &value);
    // Property 7 is visibility: "1" shows, "0" hides.
    void TSetProperty(const QString &target, int property, const QString &value);

    // The figure as shown: "comignolo RRGGBB, ... fumo 1, nuvole 0"; empty without one.
    QString Shown() const;

    // A click on the movie: the part's number in frames 2 and 3, "0" in frames 0 and 1.
    EventHandler<void(const QString &command, const QString &arguments)> OnFSCommand;

protected:
    bool Event(QEvent *event) override;

private:
    friend class MovieView;
    void Describe();
    void Play();
    void Pressed(const QMouseEvent &mouse);
    int PartAt(const QPointF &place) const;
    // Frame 2: a hand over the parts that take a click.
    void FollowPointer();
    void ShowPointer(platform::MousePointer pointer);

    MovieView *m_view;
    std::unique_ptr<MovieReader> m_reader;
    std::unique_ptr<Ticker> m_ticker;
    int64_t m_started = 0;
    QString m_path;
    QString m_bgColor = QStringLiteral("FFFFFF");
    int m_frame = 0;
};

} // namespace platform
