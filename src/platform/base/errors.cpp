// The standard texts of the run-time errors, and the two checked conversions.
#include "platform/base/errors.h"

#include <cmath>
#include <limits>

namespace platform {

namespace {

QString StandardText(int number)
{
    switch (number) {
    case BadCall:
        return QStringLiteral("Chiamata di routine o argomento non validi");
    case Overflow:
        return QStringLiteral("Overflow");
    case SubscriptOutOfRange:
        return QStringLiteral("Indice non compreso nell'intervallo");
    case DivisionByZero:
        return QStringLiteral("Divisione per zero");
    case TypeMismatch:
        return QStringLiteral("Tipo non corrispondente");
    case BadFileNameOrNumber:
        return QStringLiteral("Nome di file non valido");
    case FileNotFound:
        return QStringLiteral("Impossibile trovare il file");
    case FileAlreadyExists:
        return QStringLiteral("File già esistente");
    case DiskFull:
        return QStringLiteral("Disco pieno");
    case InputPastEnd:
        return QStringLiteral("Lettura oltre la fine del file");
    case PermissionDenied:
        return QStringLiteral("Autorizzazione negata");
    case PathFileAccess:
        return QStringLiteral("Errore di accesso al percorso o al file");
    case PathNotFound:
        return QStringLiteral("Impossibile trovare il percorso");
    case NoSuchElement:
        return QStringLiteral("Elemento della matrice di controlli inesistente");
    case NotAnArray:
        return QStringLiteral("L'oggetto non è una matrice");
    case InvalidPropertyValue:
        return QStringLiteral("Valore di proprietà non valido");
    case InvalidArrayIndex:
        return QStringLiteral("Indice di matrice di proprietà non valido");
    case SetNotSupported:
        return QStringLiteral("Proprietà di sola lettura");
    case SetNotPermitted:
        return QStringLiteral("Impossibile impostare la proprietà");
    case GetNotSupported:
        return QStringLiteral("Impossibile leggere la proprietà");
    case NoSuchProperty:
        return QStringLiteral("Proprietà o metodo non supportati dall'oggetto");
    case InvalidPicture:
        return QStringLiteral("Immagine non valida");
    case PrinterError:
        return QStringLiteral("Errore della stampante");
    default:
        return QStringLiteral("Errore di esecuzione");
    }
}

} // namespace

RunTimeError::RunTimeError(int number, const QString &detail)
    : m_number(number), m_text(StandardText(number))
{
    if (!detail.isEmpty())
        m_text += QStringLiteral(" (") + detail + QLatin1Char(')');
    m_what = m_text.toUtf8();
}

int16_t Integer16(int64_t value)
{
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        throw RunTimeError(Overflow);
    return static_cast<int16_t>(value);
}

int32_t RoundToLong(double value)
{
    // The default rounding of the floating-point unit is to nearest, halves to even.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<int32_t>::min() &&
          rounded <= std::numeric_limits<int32_t>::max()))
        throw RunTimeError(Overflow);
    return static_cast<int32_t>(rounded);
}

} // namespace platform
