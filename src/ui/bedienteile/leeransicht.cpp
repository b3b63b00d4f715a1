#include "leeransicht.h"

#include "knopf.h"
#include "pfade.h"
#include "profilwahl.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"
#include "zustand.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int kante = 56;
}

class Leeransicht::Bild : public QWidget
{
public:
    using QWidget::QWidget;
    void setzen(Symbol symbol)
    {
        m_symbol = symbol;
        update();
    }
    [[nodiscard]] QSize sizeHint() const override { return {abstand(kante), abstand(kante)}; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter maler(this);
        const QRect flaeche((width() - abstand(kante)) / 2, 0, abstand(kante), abstand(kante));
        Zeichen::malen(maler, flaeche, m_symbol, palette(), Stil::nebenfarbe(palette()));
    }

private:
    Symbol m_symbol = Symbol::Keines;
};

Leeransicht::Leeransicht(QWidget *eltern)
    : QWidget(eltern), m_bild(new Bild(this)), m_titel(new QLabel(this)), m_zeile(new QLabel(this)),
      m_knopf(new Knopf(u"leerknopf"_s, {}, this))
{
    auto *spalte = new QVBoxLayout(this);
    spalte->addStretch(1);
    for (QLabel *schild : {m_titel, m_zeile}) {
        schild->setAlignment(Qt::AlignCenter);
        schild->setTextFormat(Qt::PlainText);
        schild->setWordWrap(true);
    }
    m_titel->setObjectName(u"leertitel"_s);
    m_zeile->setObjectName(u"leerzeile"_s);
    spalte->addWidget(m_bild);
    spalte->addWidget(m_titel);
    spalte->addWidget(m_zeile);
    spalte->addWidget(m_knopf, 0, Qt::AlignHCenter);
    spalte->addStretch(2); // a third down
    connect(m_knopf, &QPushButton::clicked, this, &Leeransicht::gedrueckt);
    Stil::schriftFolgt(m_titel, Schrift::Seitentitel);
    Stil::nebentext(m_zeile);
    Stil::folgen(this, [this, spalte] {
        spalte->setContentsMargins(abstand(24), abstand(24), abstand(24), abstand(24));
        spalte->setSpacing(abstand(8));
        m_bild->setFixedHeight(abstand(kante) + abstand(6));
    });
}

QString katalogfehlersatz(const Profilwahl &profilwahl)
{
    return gefuellt(Sprache::text(u"%@\n%@\nSchließe andere Programme, die ihn benutzen, und versuche es noch einmal. "
                                  "Ist er beschädigt, lege die Datei beiseite: Dann beginnt ein neuer Katalog. Deine "
                                  "Dokumente bleiben, wo sie sind."_s),
                    {kurzpfad(profilwahl.katalogdatei()), profilwahl.katalogfehler()});
}

void Leeransicht::setzeOhneKatalog(Symbol symbol, const Profilwahl &profilwahl)
{
    if (profilwahl.katalogfehler().isEmpty())
        setzen(symbol, Sprache::text(u"Noch kein Profil"_s),
               Sprache::text(u"Lege auf der Karte Einrichtung ein Profil an."_s), Sprache::text(u"Zur Einrichtung"_s));
    else
        setzen(symbol, Sprache::text(u"Der Katalog lässt sich nicht öffnen"_s), katalogfehlersatz(profilwahl),
               Sprache::text(u"Noch einmal versuchen"_s));
}

void Leeransicht::ohneKatalogWeiter(Zustand &zustand)
{
    if (zustand.profilwahl()->katalogfehler().isEmpty())
        zustand.setzeReiter(Reiter::Einrichtung);
    else
        zustand.profilwahl()->erneutOeffnen();
}

void Leeransicht::setzen(Symbol symbol, const QString &titel, const QString &zeile, const QString &knopf)
{
    m_bild->setzen(symbol);
    m_titel->setText(titel);
    m_zeile->setText(zeile);
    m_zeile->setVisible(!zeile.isEmpty());
    m_knopf->setText(knopf);
    m_knopf->updateGeometry();
    m_knopf->setVisible(!knopf.isEmpty());
    setAccessibleName(titel);
    setAccessibleDescription(zeile);
}
} // namespace quillmar::bedienteile
