// The calls of the printing library that are used, looked up when the program runs: a machine
// without it has no printers. Types and numbers are those of the library.
#pragma once

namespace platform {

struct CupsConnection;
struct CupsPrinterFacts;
struct CupsAttribute;

struct CupsOption {
    char *Name;
    char *Value;
};

struct CupsPrinter {
    char *Name;
    char *Instance;
    int IsDefault;
    int OptionCount;
    CupsOption *Options;
};

struct CupsPaper {
    char Media[128];
    int Width; // hundredths of a millimetre
    int Length;
    int Bottom;
    int Left;
    int Right;
    int Top;
};

constexpr int CupsLastGoodStatus = 0x06; // done, with remarks
constexpr int CupsContinue = 100;        // of the transport
constexpr int CupsBlocking = 1;

struct Cups {
    // True to go on waiting; called each time that an answer has not come for so long.
    using Waiting = int (*)(CupsConnection *, void *);
    using Password = const char *(*)(const char *, CupsConnection *, const char *, const char *,
                                     void *);

    const char *(*Server)();
    int (*Port)();
    int (*Encryption)();
    void (*SetPassword)(Password, void *);
    int (*LastError)();
    CupsConnection *(*Connect)(const char *host, int port, void *addresses, int family,
                               int encryption, int blocking, int milliseconds, int *cancel);
    void (*SetTimeout)(CupsConnection *, double seconds, Waiting, void *);
    void (*Close)(CupsConnection *);

    const char *(*DefaultPrinter)(CupsConnection *);
    int (*Printers)(CupsConnection *, CupsPrinter **);
    void (*FreePrinters)(int, CupsPrinter *);
    CupsPrinter *(*PrinterNamed)(CupsConnection *, const char *name, const char *instance);
    CupsPrinterFacts *(*Facts)(CupsConnection *, CupsPrinter *);
    void (*FreeFacts)(CupsPrinterFacts *);
    int (*PaperCount)(CupsConnection *, CupsPrinter *, CupsPrinterFacts *, unsigned flags);
    int (*Paper)(CupsConnection *, CupsPrinter *, CupsPrinterFacts *, int index, unsigned flags,
                 CupsPaper *);
    CupsAttribute *(*FindDefault)(CupsConnection *, CupsPrinter *, CupsPrinterFacts *,
                                  const char *option);
    const char *(*String)(CupsAttribute *, int index, const char **language);

    int (*CreateJob)(CupsConnection *, const char *printer, const char *title, int options,
                     CupsOption *);
    int (*StartDocument)(CupsConnection *, const char *printer, int job, const char *name,
                         const char *format, int last);
    int (*Write)(CupsConnection *, const char *, unsigned long bytes);
    int (*FinishDocument)(CupsConnection *, const char *printer);
    int (*CancelJob)(CupsConnection *, const char *printer, int job, int purge);
};

// Null without the library.
const Cups *TheCups();

} // namespace platform
