// What a text box shows that is only read: sentences on a page, in columns where they give larger
// letters. Nothing scrolls, since who has one switch cannot.
#pragma once

#include "platform/base/colors.h"
#include "platform/base/fitted_text.h"

#include <QPlainTextEdit>

#include <memory>

namespace platform {

// The toolkit's text edit only holds the text, for screen readers; the page is drawn here.
class TextPage : public QPlainTextEdit {
public:
    TextPage();

    void Write(const QString &text);
    void Show(const Font &font, Color back, Color fore);
    const FittedText &Laid() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void Changed();

    Font m_font;
    Color m_back = SystemWindow;
    Color m_fore = SystemButtonText;
    mutable std::unique_ptr<FittedText> m_laid; // nothing after a change
};

} // namespace platform
