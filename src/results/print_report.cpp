#include "results/print_report.h"

#include "platform/printing/printer_object.h"

#include <QList>

#include <algorithm>

using namespace platform;

namespace {

constexpr double Margine = 450;  // twips, so that nothing touches the paper's edge
constexpr double Spazio = 60;    // twips round a text
constexpr int PennaSottile = 4;  // dots
constexpr int PennaCornice = 20; // dots
constexpr int16_t Orizzontale = 2;
const QString Rientro = QStringLiteral("    ");

// The part of the table on one page.
class Pagine {
public:
    Pagine(PrinterObject &stampante, const Grid &tabella, double x, double y)
        : m_stampante(stampante), m_tabella(tabella), m_y(y)
    {
        stampante.DrawWidth = PennaCornice;
        // Half of the frame's pen would fall off the sheet.
        const double bordo = stampante.PenWidth() / 2;
        m_sinistra = std::max(x, bordo);
        // Each column has its space on both sides, and one more stands before the right edge.
        const double spazi = (2 * tabella.Cols() + 1) * Spazio;
        double testi = 0;
        for (int colonna = 0; colonna < tabella.Cols(); ++colonna)
            testi += tabella.ColWidth(colonna);
        const double posto = stampante.ScaleWidth() - bordo - m_sinistra - spazi;
        const double scala = testi > posto ? std::max(0.0, posto / testi) : 1;
        for (int colonna = 0; colonna < tabella.Cols(); ++colonna)
            m_larghezze << tabella.ColWidth(colonna) * scala;
        m_destra = m_sinistra + spazi + testi * scala;
    }

    void Stampa()
    {
        Comincia(m_stampante.CurrentY + m_y);
        for (int riga = 0; riga < m_tabella.Rows(); ++riga) {
            if (riga > 0 && m_stampante.CurrentY + AltezzaRiga() > m_stampante.ScaleHeight()) {
                Cornice();
                m_stampante.NewPage();
                Comincia(m_y);
                Riga(0);
            }
            Riga(riga);
        }
        Cornice();
    }

private:
    double AltezzaRiga() const { return m_stampante.TextHeight() + 2 * Spazio; }

    void Comincia(double y)
    {
        m_stampante.DrawWidth = PennaCornice;
        m_alto = std::max(y, m_stampante.PenWidth() / 2);
        m_stampante.CurrentY = m_alto;
    }

    void Riga(int riga)
    {
        m_stampante.DrawWidth = PennaSottile;
        if (riga > 0)
            m_stampante.Line(m_sinistra, m_stampante.CurrentY, m_destra, m_stampante.CurrentY);
        m_stampante.CurrentY += Spazio;
        double x = m_sinistra + Spazio;
        for (int colonna = 0; colonna < m_tabella.Cols(); ++colonna) {
            m_stampante.CurrentX = x;
            m_stampante.Print(Accorciato(m_tabella.TextMatrix(riga, colonna), m_larghezze[colonna]),
                              false);
            x += m_larghezze[colonna] + 2 * Spazio;
        }
        m_stampante.CurrentY += Spazio;
        m_stampante.Print({});
    }

    QString Accorciato(QString testo, double larghezza) const
    {
        while (!testo.isEmpty() && m_stampante.TextWidth(testo) > larghezza)
            testo.chop(1);
        return testo;
    }

    void Cornice()
    {
        const double fondo = m_stampante.CurrentY;
        m_stampante.DrawWidth = PennaCornice;
        m_stampante.Rectangle(m_sinistra, m_alto, m_destra, fondo);
        m_stampante.DrawWidth = PennaSottile;
        double x = m_sinistra;
        for (int colonna = 0; colonna + 1 < m_tabella.Cols(); ++colonna) {
            x += m_larghezze[colonna] + 2 * Spazio;
            m_stampante.Line(x, m_alto, x, fondo);
        }
    }

    PrinterObject &m_stampante;
    const Grid &m_tabella;
    QList<double> m_larghezze;
    double m_y;
    double m_sinistra = 0;
    double m_destra = 0;
    double m_alto = 0; // of the table on this page
};

} // namespace

void StampaResoconto(const TitoliResoconto &titoli, const QString &giocatore, const Grid &tabella,
                     double x, double y)
{
    PrinterObject stampante(QStringLiteral("MorleneKVT - ") + giocatore, Orizzontale);
    stampante.Margin = Margine;
    stampante.Print(giocatore);
    stampante.Font = {QStringLiteral("arial"), 16};
    stampante.Print(Rientro + titoli.Giocatore);
    stampante.Font.Size = 14;
    stampante.Print(Rientro + titoli.Data);
    stampante.Print(Rientro);
    stampante.Font.Name = tabella.Font().Name;
    stampante.Font.Size = tabella.Font().Size;
    Pagine(stampante, tabella, x, y).Stampa();
    stampante.Font.Size = 12;
    if (stampante.CurrentY + stampante.TextHeight() > stampante.ScaleHeight())
        stampante.NewPage();
    stampante.Print(Rientro + titoli.Nota);
    stampante.Print(Rientro);
    stampante.EndDoc();
}
