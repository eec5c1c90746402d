// A text on the window. It is drawn in the largest size up to that of its font in which the whole
// text fits, so that a child never has to scroll.
#pragma once

#include "platform/base/fitted_text.h"
#include "platform/controls/visual_control.h"

namespace platform {

class LabelView;

enum class Alignment { Left, Right, Center };

class Label : public VisualControl {
public:
    Label(const ControlId &id, const Place &place, const QString &caption = {},
          Alignment alignment = Alignment::Left);

    QString Caption() const override;
    void SetCaption(const QString &caption) override;
    // A framed page with round corners, as for a sentence to read.
    void SetFramed(bool framed);
    // Shows what lies behind it.
    void SetTransparent(bool transparent);
    // Drawn in one size with `other` and all that share it already: the smallest that one needs.
    void ShareSize(const Label &other);
    DrawnText Drawn() const;
    // The width follows the text in the font as set.
    void SetAutoSize(bool autoSize);

protected:
    void Refresh() override;

private:
    LabelView *m_view;
    bool m_autoSize = false;
};

} // namespace platform
