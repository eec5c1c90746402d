#include "menu/menu_items.h"

#include "language/language.h"

void ComponiTitoli(const std::function<platform::Label &(int)> &titolo)
{
    const QString aCapo = QStringLiteral("\n");
    for (const int i : {0, 1, 4, 5, 7, 8})
        titolo(i).SetCaption(aCapo + titolo(i).Caption());
    titolo(2).SetCaption(MLSTesto(QStringLiteral("0059")) + aCapo +
                         MLSTesto(QStringLiteral("0060")) + aCapo + QStringLiteral("1°"));
    titolo(3).SetCaption(MLSTesto(QStringLiteral("0061")) + aCapo +
                         MLSTesto(QStringLiteral("0062")) + aCapo + QStringLiteral("2°"));
    titolo(6).SetCaption(aCapo + MLSTesto(QStringLiteral("0063")) + aCapo +
                         MLSTesto(QStringLiteral("0064")));
}
