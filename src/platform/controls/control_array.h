// Named controls with an integer index, and the index is the meaning. Events carry it.
#pragma once

#include "platform/controls/control.h"
#include "platform/host/event_handler.h"

#include <map>
#include <memory>
#include <utility>

namespace platform {

template <typename T> class ControlArray {
public:
    ControlArray(Form &form, const char *name) : m_id{form, name} {}
    // All elements lie in a control: `Frame1.Inside("Option1")`.
    explicit ControlArray(const ControlId &id) : m_id(id) {}
    // The elements made from now on lie in that control.
    void LieIn(VisualControl &container) { m_id.Container = &container; }
    ControlArray(const ControlArray &) = delete;
    ControlArray &operator=(const ControlArray &) = delete;

    // Makes the element; the arguments are those of a single control behind its id.
    template <typename... Args> T &Add(int index, Args &&...args)
    {
        auto element = std::make_unique<T>(ControlId{m_id.Parent, m_id.Name, index, m_id.Container},
                                           std::forward<Args>(args)...);
        T &control = *element;
        m_elements[index] = std::move(element);
        control.OnClick = [this, index] { OnClick(index); };
        if constexpr (requires { control.HandClicksOnTo(OnClick); })
            control.HandClicksOnTo(OnClick);
        if constexpr (requires { control.OnMouseMove; })
            control.OnMouseMove = [this, index] { OnMouseMove(index); };
        return control;
    }

    // Error 340 when there is no such element.
    T &operator()(int index) const
    {
        const auto found = m_elements.find(index);
        if (found == m_elements.end())
            throw RunTimeError(NoSuchElement, QString::fromLatin1(m_id.Name));
        return *found->second;
    }
    void Remove(int index) { m_elements.erase(index); }

    int Count() const { return static_cast<int>(m_elements.size()); }

    EventHandler<void(int)> OnClick;
    EventHandler<void(int)> OnMouseMove;

    // Elements in the order of their indexes.
    class Iterator {
    public:
        using Inner = typename std::map<int, std::unique_ptr<T>>::const_iterator;
        explicit Iterator(Inner inner) : m_inner(inner) {}
        T &operator*() const { return *m_inner->second; }
        Iterator &operator++()
        {
            ++m_inner;
            return *this;
        }
        bool operator!=(const Iterator &other) const { return m_inner != other.m_inner; }

    private:
        Inner m_inner;
    };
    Iterator begin() const { return Iterator(m_elements.begin()); }
    Iterator end() const { return Iterator(m_elements.end()); }

private:
    ControlId m_id;
    std::map<int, std::unique_ptr<T>> m_elements;
};

} // namespace platform
