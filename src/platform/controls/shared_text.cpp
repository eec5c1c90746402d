#include "platform/controls/shared_text.h"

#include <QWidget>

#include <algorithm>
#include <limits>
#include <utility>

namespace platform {

SharedText::SharedText(QWidget &widget, Lay lay)
    : m_widget(widget), m_lay(std::move(lay)),
      m_together(std::make_shared<std::vector<SharedText *>>(1, this))
{
}

SharedText::~SharedText()
{
    std::erase(*m_together, this);
}

void SharedText::ShareSize(const SharedText &other)
{
    std::erase(*m_together, this);
    m_together = other.m_together;
    m_together->push_back(this);
    Changed();
}

void SharedText::Changed()
{
    m_own.reset();
    for (SharedText *text : *m_together) {
        text->m_laid.reset();
        text->m_widget.update();
    }
}

const FittedText &SharedText::Laid() const
{
    if (m_together->size() == 1)
        return Own();
    if (m_laid == nullptr)
        LayTogether();
    return *m_laid;
}

void SharedText::LayTogether() const
{
    double points = std::numeric_limits<double>::infinity();
    for (const SharedText *text : *m_together)
        points = std::min(points, text->Own().Drawn().Points);
    // What fits in large letters may not fit in slightly smaller ones, whose widths are rounded
    // otherwise.
    for (bool one = false; !one;) {
        one = true;
        for (const SharedText *text : *m_together) {
            text->m_laid = text->m_lay(points);
            if (text->m_laid->Drawn().Points < points) {
                points = text->m_laid->Drawn().Points;
                one = false;
            }
        }
    }
}

const FittedText &SharedText::Own() const
{
    if (m_own == nullptr)
        m_own = m_lay(std::numeric_limits<double>::infinity());
    return *m_own;
}

} // namespace platform
