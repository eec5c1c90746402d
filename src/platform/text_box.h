// A box to type or to read text in.
#pragma once

#include "platform/visual_control.h"

class QPlainTextEdit;
class QLineEdit;

namespace platform {

class TextBox : public VisualControl {
public:
    enum class Kind { OneLine, ReadOnlyPage };
    TextBox(const ControlId &id, const Place &place, Kind kind = Kind::OneLine);

    QString Text() const;
    // Raises Change when the text differs, as typing does.
    void SetText(const QString &text);

    std::function<void()> OnChange;
    // False drops a letter that a person types, pastes or drops; code writes what it likes.
    std::function<bool(QChar letter)> OnKeyPress;

protected:
    void Refresh() override;
    bool Event(QEvent *event) override;

private:
    void ShowPage(const QString &text);
    void FitFont();
    void Edited();
    void Changed();

    QString m_known; // the text of the last Change
    QLineEdit *m_line = nullptr;
    QPlainTextEdit *m_page = nullptr;
    QString m_text; // of a page, with its line breaks as given: CR LF
};

} // namespace platform
