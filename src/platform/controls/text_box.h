// A box to type or to read text in.
#pragma once

#include "platform/base/fitted_text.h"
#include "platform/controls/visual_control.h"

class QLineEdit;

namespace platform {

class TextPage;

class TextBox : public VisualControl {
public:
    enum class Kind { OneLine, ReadOnlyPage };
    TextBox(const ControlId &id, const Place &place, Kind kind = Kind::OneLine);

    QString Text() const;
    // Raises Change when the text differs, as typing does.
    void SetText(const QString &text);
    // How the text of a page came out; a line is as large as its font.
    DrawnText Drawn() const;

    EventHandler<void()> OnChange;
    // False drops a letter that a person types, pastes or drops, or that an aid to reading writes;
    // where all are dropped nothing changes. Code writes what it likes.
    EventHandler<bool(QChar letter)> OnKeyPress;

protected:
    void Refresh() override;
    bool Event(QEvent *event) override;

private:
    void ShowPage(const QString &text);
    void RememberSelection();
    void Edited();
    void WrittenFromOutside();
    void Sift(qsizetype start, qsizetype end);
    void Changed();

    QString m_known; // the text of the last Change
    // Of that text; without a selection both ends are where letters go in.
    int m_selectionStart = 0;
    int m_selectionEnd = 0;
    int m_cursor = 0;
    bool m_byCode = false;
    bool m_edited = false; // by a person, and not told yet
    QLineEdit *m_line = nullptr;
    TextPage *m_page = nullptr;
    QString m_text; // of a page, with its line breaks as given: CR LF
};

} // namespace platform
