// The animations of a drawing, computed for any moment: the renderer knows only still pictures.
//
// Understood is what CONTRIBUTING.md promises to artists. An animation that starts at an event, or
// that contradicts itself, is left out.
#pragma once

#include "platform/movies/svg_document.h"

#include <array>
#include <limits>
#include <optional>
#include <vector>

namespace platform {

// One element of animation, ready to be asked.
struct SvgTrack {
    enum class Kind { Text, Number, Color, Transform };

    Kind What = Kind::Text;
    int Element = 0;
    QByteArray Attribute;

    double Begin = 0;   // ms
    double Cycle = 0;   // ms; 0: holds its first value
    double Repeats = 1; // may be infinite
    bool Freeze = false;

    std::vector<double> Times;                  // 0 to 1, one for each value
    std::vector<std::array<double, 4>> Splines; // one for each gap, or none
    bool Steps = false;                         // jumps from value to value
    std::vector<QByteArray> Texts;              // Kind::Text
    std::vector<std::vector<double>> Frames;    // all others
    QByteArray Function;                        // Kind::Transform: "translate"

    double End() const
    {
        return Cycle > 0 ? Begin + Cycle * Repeats : std::numeric_limits<double>::infinity();
    }
    // The share of the cycle at a moment; nothing when the track says nothing then.
    std::optional<double> Share(double milliseconds) const;
    // The attribute's value at a share.
    QByteArray ValueAt(double share) const;

private:
    std::vector<double> Mixed(double share) const;
    size_t Gap(double share, double &part) const;
};

// Nothing for an element that is left out.
std::optional<SvgTrack> CompileTrack(const SvgDocument &document, int index);

class SvgAnimation {
public:
    SvgAnimation() = default;
    explicit SvgAnimation(const SvgDocument &document);

    bool IsEmpty() const { return m_targets.empty(); }
    // Milliseconds up to the longest finite end. What repeats for ever counts with one cycle and
    // goes on until that end.
    int Duration() const { return m_duration; }

    // Values of all animated attributes at a moment, in a fixed order; nothing for an attribute
    // that is not there then.
    using Values = std::vector<std::optional<QByteArray>>;
    Values At(const SvgDocument &base, double milliseconds) const;
    void Apply(const Values &values, SvgDocument &document) const;
    // Elements that two moments show in two ways, ascending; all of them when `before` is empty.
    std::vector<int> Changes(const Values &before, const Values &after) const;

private:
    struct Target {
        int Element;
        QByteArray Attribute;
        std::vector<SvgTrack> Tracks; // later ones win
    };
    std::vector<Target> m_targets;
    int m_duration = 0;
};

} // namespace platform
