// Makes the sounds that answer a child: little melodies of bars and bells for a right answer, two
// low soft taps for a wrong one. Usage: make_sounds FOLDER, which gets si/1.wav ... and no/1.wav
// ...
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 44100;
constexpr double kLoudness = 0.1;    // root mean square over the sounding part, of full scale 1
constexpr double kHighestPeak = 0.9; // what loudspeakers of a classroom take without rattling
constexpr double kFadeOut = 0.12;    // seconds

struct Partial {
    double ratio;    // to the pitch of the note
    double strength; // of the partial at the start
    double decay;    // seconds to 1/e at 440 Hz; higher notes fade faster
};

struct Instrument {
    double attack; // seconds
    std::vector<Partial> partials;
};

struct Note {
    double start; // seconds
    int pitch;    // in semitones, 60 is middle C
    double strength;
};

struct Melody {
    const Instrument &instrument;
    double length; // seconds
    std::vector<Note> notes;
};

// A wooden bar is tuned so that its second partial lies two octaves up.
const Instrument kMarimba{0.005, {{1, 1, 0.3}, {4, 0.16, 0.09}, {9.2, 0.03, 0.03}}};
const Instrument kBell{0.004, {{1, 1, 0.42}, {2, 0.22, 0.26}, {3, 0.1, 0.16}, {5.4, 0.03, 0.07}}};
const Instrument kFeltMallet{0.016, {{1, 1, 0.15}, {2, 0.35, 0.1}, {3, 0.12, 0.07}}};

const std::vector<Melody> kRight = {
    {kMarimba, 1.1, {{0, 72, 0.8}, {0.11, 76, 0.8}, {0.22, 79, 0.9}, {0.33, 84, 1}}},
    {kBell, 1.1, {{0, 79, 0.8}, {0.13, 84, 0.9}, {0.26, 88, 1}}},
    {kMarimba,
     1.3,
     {{0, 72, 0.8},
      {0.12, 74, 0.7},
      {0.24, 76, 0.8},
      {0.36, 79, 1},
      {0.54, 76, 0.7},
      {0.66, 84, 1}}},
    {kBell,
     1.2,
     {{0, 77, 0.9},
      {0.1, 81, 0.8},
      {0.2, 84, 0.8},
      {0.36, 77, 0.6},
      {0.36, 81, 0.6},
      {0.36, 89, 0.8}}},
    {kMarimba, 1.2, {{0, 79, 0.9}, {0.1, 79, 0.7}, {0.2, 79, 0.7}, {0.32, 84, 1}, {0.32, 76, 0.6}}},
    {kBell, 1.3, {{0, 84, 0.9}, {0.14, 79, 0.7}, {0.28, 81, 0.8}, {0.42, 84, 0.8}, {0.56, 88, 1}}},
};

const std::vector<Melody> kWrong = {
    {kFeltMallet, 0.7, {{0, 62, 1}, {0.2, 59, 0.9}}},
    {kFeltMallet, 0.6, {{0, 57, 1}, {0.16, 57, 0.8}}},
    {kFeltMallet, 0.7, {{0, 60, 1}, {0.2, 57, 0.9}}},
    {kFeltMallet, 0.7, {{0, 64, 1}, {0.22, 57, 0.9}}},
};

double Frequency(int pitch)
{
    return 440.0 * std::pow(2.0, (pitch - 69) / 12.0);
}

// From 0 to 1 without a corner, which the ear would hear as a click.
double SmoothRise(double part)
{
    return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(part, 0.0, 1.0));
}

void AddNote(std::vector<double> &samples, const Instrument &instrument, const Note &note)
{
    const double frequency = Frequency(note.pitch);
    const double speed = std::sqrt(frequency / 440.0);
    const auto first = static_cast<std::size_t>(std::lround(note.start * kRate));
    for (std::size_t i = first; i < samples.size(); ++i) {
        const double time = static_cast<double>(i - first) / kRate;
        double value = 0;
        for (const Partial &partial : instrument.partials)
            value += partial.strength * std::exp(-time * speed / partial.decay) *
                     std::sin(2 * std::numbers::pi * frequency * partial.ratio * time);
        samples[i] += note.strength * value * SmoothRise(time / instrument.attack);
    }
}

// The sounding part ends where the sound has fallen to a hundredth of its loudest moment.
double LoudnessOfSoundingPart(const std::vector<double> &samples)
{
    double loudest = 0;
    for (double sample : samples)
        loudest = std::max(loudest, std::abs(sample));
    const auto last = std::find_if(samples.rbegin(), samples.rend(), [loudest](double sample) {
        return std::abs(sample) > loudest / 100;
    });
    double sum = 0;
    for (auto it = last; it != samples.rend(); ++it)
        sum += *it * *it;
    return std::sqrt(sum / static_cast<double>(std::max<std::ptrdiff_t>(samples.rend() - last, 1)));
}

std::vector<double> Play(const Melody &melody)
{
    std::vector<double> samples(static_cast<std::size_t>(std::lround(melody.length * kRate)));
    for (const Note &note : melody.notes)
        AddNote(samples, melody.instrument, note);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] *= SmoothRise(static_cast<double>(samples.size() - 1 - i) / kRate / kFadeOut);
    const double gain = kLoudness / LoudnessOfSoundingPart(samples);
    for (double &sample : samples)
        sample *= gain;
    return samples;
}

void AppendNumber(std::string &bytes, std::uint32_t number, int length)
{
    for (int i = 0; i < length; ++i)
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

std::string WaveFile(const std::vector<double> &samples)
{
    const auto dataLength = static_cast<std::uint32_t>(samples.size() * 2);
    std::string bytes = "RIFF";
    AppendNumber(bytes, 36 + dataLength, 4);
    bytes += "WAVEfmt ";
    AppendNumber(bytes, 16, 4);
    AppendNumber(bytes, 1, 2); // plain samples
    AppendNumber(bytes, 1, 2); // one channel
    AppendNumber(bytes, kRate, 4);
    AppendNumber(bytes, kRate * 2, 4);
    AppendNumber(bytes, 2, 2);
    AppendNumber(bytes, 16, 2);
    bytes += "data";
    AppendNumber(bytes, dataLength, 4);
    for (double sample : samples)
        AppendNumber(bytes, static_cast<std::uint32_t>(std::lround(sample * 32767)), 2);
    return bytes;
}

bool WriteFolder(const std::filesystem::path &folder, const std::vector<Melody> &melodies)
{
    std::filesystem::create_directories(folder);
    for (std::size_t i = 0; i < melodies.size(); ++i) {
        const std::vector<double> samples = Play(melodies[i]);
        const std::filesystem::path path = folder / (std::to_string(i + 1) + ".wav");
        const auto [lowest, highest] = std::minmax_element(samples.begin(), samples.end());
        if (std::max(-*lowest, *highest) > kHighestPeak) {
            std::fprintf(stderr, "%s would be too loud at its peak\n", path.c_str());
            return false;
        }
        std::ofstream file(path, std::ios::binary);
        file << WaveFile(samples);
        if (!file.flush()) {
            std::fprintf(stderr, "%s cannot be written\n", path.c_str());
            return false;
        }
    }
    return true;
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "Usage: make_sounds FOLDER\n");
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    return WriteFolder(folder / "si", kRight) && WriteFolder(folder / "no", kWrong) ? 0 : 1;
}
