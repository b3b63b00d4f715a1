#include "laufteile.h"

#include "bau.h"
#include "textschild.h"

#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
using Stand = Stufenbild::Stand;

namespace
{
Symbol symbol(Stand stand)
{
    if (stand == Stand::Fertig)
        return Symbol::Gut;
    return stand == Stand::Laeuft ? Symbol::Laeuft : Symbol::Offen;
}
} // namespace

Zahl::Zahl(int nummer, Schrift schrift, const QString &was)
    : m_wert(new Textschild(Textschild::Art::KurzEnde, schrift)), m_was(was)
{
    setObjectName(u"zahl-%1"_s.arg(nummer));
    fuellen(this, spalte({m_wert, schild(was, Schrift::Neben)}, Abstand::Keiner));
    setzeRaender(this, {Abstand::Keiner, Abstand::Keiner, Abstand::Feld, Abstand::Keiner});
}

void Zahl::zeigen(qint64 wert, bool warnung)
{
    m_wert->setzen(warnung ? Symbol::Warnung : Symbol::Keines, QLocale().toString(wert));
    setAccessibleName(m_wert->ganzerText() + u' ' + m_was);
}

Gesamtstand::Gesamtstand()
    : m_satz(schild({}, Schrift::Halbfett)), m_zeit(schild({}, Schrift::Neben)), m_balken(balken({})),
      m_portion(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben))
{
    setObjectName(u"gesamtstand"_s);
    fuellen(this, spalte({reihe({{m_satz, 1}, m_zeit}), m_balken, m_portion}, Abstand::Eng));
}

void Gesamtstand::zeigen(const Laufganzes &ganzes)
{
    m_satz->setText(ganzes.satz());
    m_zeit->setText(ganzes.restzeit);
    setzeAnteil(m_balken, ganzes.anteil());
    m_portion->setzeText(ganzes.portionssatz());
    setAccessibleName(ganzes.satz());
    setAccessibleDescription(vorgelesen({ganzes.restzeit, ganzes.portionssatz()}));
}

Stufe::Stufe(int nummer, bool letzte)
    : m_marke(new QLabel), m_name(schild({})), m_zeit(schild({}, Schrift::Neben)),
      m_meldung(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben)), m_balken(balken({}))
{
    setObjectName(u"stufe-%1"_s.arg(nummer));
    auto *raster = new QGridLayout;
    raster->addWidget(m_marke, 0, 0, Qt::AlignCenter);
    raster->addWidget(m_name, 0, 1);
    raster->addWidget(m_zeit, 0, 2);
    raster->addWidget(m_meldung, 1, 1, 1, 2);
    raster->addWidget(m_balken, 2, 1, 1, 2);
    raster->setColumnStretch(1, 1);
    if (!letzte)
        raster->addWidget(linie(Qt::Vertical), 1, 0, 2, 1, Qt::AlignHCenter);
    setzeLuecken(this, Abstand::Feld, Abstand::Eng);
    setzeRaender(this, {Abstand::Keiner, Abstand::Keiner, Abstand::Keiner, Abstand::Nah});
    setLayout(raster);
}

void Stufe::zeigen(const Stufenbild &stufe, const QString &zeit, double anteil)
{
    const bool laeuft = stufe.stand == Stand::Laeuft;
    if (const Symbol neu = symbol(stufe.stand); neu != m_symbol)
        m_marke->setPixmap(zeichenbild(m_symbol = neu));
    Stil::kleiden(m_name, laeuft ? Schrift::Halbfett : Schrift::Grund)->setText(stufe.name);
    m_zeit->setText(zeit);
    m_meldung->setzeText(stufe.meldung);
    m_balken->setVisible(laeuft);
    setzeAnteil(m_balken, anteil);
    setAccessibleName(stufe.name);
    setAccessibleDescription(vorgelesen({standwort(stufe.stand), stufe.meldung, zeit}));
}

void Stufe::changeEvent(QEvent *ereignis)
{
    QWidget::changeEvent(ereignis);
    if (ereignis->type() == QEvent::FontChange || ereignis->type() == QEvent::PaletteChange)
        m_marke->setPixmap(zeichenbild(m_symbol));
}
} // namespace quillmar::ablauf
