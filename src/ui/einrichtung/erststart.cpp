#include "erststart.h"

#include "dateiverwaltung.h"
#include "hauptknopf.h"
#include "hinweisfeld.h"
#include "pfade.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int kante = 56;

QLabel *zeile(const QString &text, QVBoxLayout *spalte, QWidget *eltern)
{
    auto *schild = new QLabel(text, eltern);
    schild->setTextFormat(Qt::PlainText);
    schild->setWordWrap(true);
    schild->setAlignment(Qt::AlignCenter);
    spalte->addWidget(schild);
    return schild;
}
} // namespace

/** Before all else: this is no first start. */
void Erststart::unlesbaresZeigen(const QString &kopie, QVBoxLayout *spalte)
{
    auto *feld = new Hinweisfeld(
        true, Symbol::Warnung,
        gefuellt(Sprache::text(u"Die bisherige Profilliste war nicht lesbar und liegt jetzt hier: %@"_s),
                 {kurzpfad(kopie)}) +
            u". "_s + Sprache::text(u"Die Kataloge der Profile und deine Dokumente sind nicht davon betroffen."_s),
        Sprache::text(u"Ordner öffnen"_s), this);
    feld->setObjectName(u"unlesbareProfile"_s);
    feld->knopf()->setObjectName(u"unlesbareProfileZeigen"_s);
    feld->knopf()->setToolTip(Sprache::text(u"Öffnet den Ordner in der Dateiverwaltung"_s));
    connect(feld, &Hinweisfeld::gedrueckt, this, [kopie] { Dateiverwaltung::zeigen(kopie); });
    spalte->addWidget(feld);
}

Erststart::Erststart(const QString &datenordner, const QString &unlesbare, QWidget *eltern)
    : QWidget(eltern), m_bild(new QWidget(this)), m_knopf(new Hauptknopf(Sprache::text(u"Erstes Profil anlegen"_s)))
{
    setObjectName(u"erststart"_s);
    auto *spalte = new QVBoxLayout(this);
    if (!unlesbare.isEmpty())
        unlesbaresZeigen(unlesbare, spalte);
    spalte->addStretch(1);
    spalte->addWidget(m_bild);
    Stil::schriftFolgt(zeile(Sprache::text(u"Aus einem Stapel Scans wird eine geordnete Ablage"_s), spalte, this),
                       Schrift::Seitentitel);
    zeile(Sprache::text(u"Quillmar liest gescannte Briefe auf diesem Rechner, schlägt Name und Ordner vor und legt ab, "
                        "sobald du zustimmst."_s),
          spalte, this);
    m_knopf->setObjectName(u"erstesProfil"_s);
    m_knopf->setAccessibleName(m_knopf->text());
    spalte->addSpacing(12);
    spalte->addWidget(m_knopf, 0, Qt::AlignHCenter);
    spalte->addSpacing(12);
    for (const QString &text :
         {gefuellt(Sprache::text(u"Einstellungen und Katalog liegen in %@."_s), {kurzpfad(datenordner)}),
          Sprache::text(u"Deine Dokumente bleiben, wo sie sind, bis du den ersten Vorschlag übernimmst."_s)})
        Stil::nebentext(zeile(text, spalte, this));
    spalte->addStretch(2); // a third down
    setFocusProxy(m_knopf);
    connect(m_knopf, &QPushButton::clicked, this, &Erststart::anlegen);
    Stil::folgen(this, [this, spalte] {
        spalte->setContentsMargins(abstand(24), abstand(24), abstand(24), abstand(24));
        spalte->setSpacing(abstand(6));
        m_bild->setFixedHeight(abstand(kante + 10));
    });
}

void Erststart::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    const QRect flaeche((width() - abstand(kante)) / 2, m_bild->y(), abstand(kante), abstand(kante));
    Zeichen::malen(maler, flaeche, Symbol::GrossOrdner, palette(), Stil::nebenfarbe(palette()));
}
} // namespace quillmar::einrichtung
