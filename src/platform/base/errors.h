// Run-time errors with the classic numbers: one exception type for all of the program.
#pragma once

#include <QString>

#include <cstdint>
#include <exception>

namespace platform {

enum ErrorNumber : int {
    BadCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    BadFileNameOrNumber = 52,
    FileNotFound = 53,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    NoSuchElement = 340,
    NotAnArray = 343,
    InvalidPropertyValue = 380,
    InvalidArrayIndex = 381,
    SetNotSupported = 383,
    SetNotPermitted = 387,
    GetNotSupported = 393,
    NoSuchProperty = 438,
    InvalidPicture = 481,
    PrinterError = 482,
};

class RunTimeError : public std::exception {
public:
    // `detail` follows the standard text of the number in brackets, a path for instance.
    explicit RunTimeError(int number, const QString &detail = {});

    int Number() const { return m_number; }
    QString Text() const { return m_text; }
    const char *what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_text;
    QByteArray m_what;
};

// The value as a 16-bit integer; error 6 outside -32768..32767.
int16_t Integer16(int64_t value);
// Nearest whole number, halves to even; error 6 outside 32 bits.
int32_t RoundToLong(double value);

// Runs one statement with errors skipped. Gives the number of the error, 0 when there was none.
template <typename Statement> int Skipping(Statement &&statement)
{
    try {
        statement();
    } catch (const RunTimeError &error) {
        return error.Number();
    }
    return 0;
}

} // namespace platform
