// The text of a widget, laid out when it is first asked for; several may be drawn in one size: the
// smallest that one of them needs.
#pragma once

#include "platform/base/fitted_text.h"

#include <functional>
#include <memory>
#include <vector>

class QWidget;

namespace platform {

class SharedText {
public:
    // `lay` makes the text as the widget shows it now, in letters of at most so many points.
    using Lay = std::function<std::unique_ptr<FittedText>(double most)>;
    SharedText(QWidget &widget, Lay lay);
    ~SharedText();
    SharedText(const SharedText &) = delete;
    SharedText &operator=(const SharedText &) = delete;

    void ShareSize(const SharedText &other);
    // The text, its font or its room is another. What one of several needs may change all.
    void Changed();
    const FittedText &Laid() const;

private:
    const FittedText &Own() const;
    void LayTogether() const;

    QWidget &m_widget;
    Lay m_lay;
    std::shared_ptr<std::vector<SharedText *>> m_together; // itself too
    mutable std::unique_ptr<FittedText> m_own;             // by itself; nothing after a change
    mutable std::unique_ptr<FittedText> m_laid;            // as drawn; the same
};

} // namespace platform
