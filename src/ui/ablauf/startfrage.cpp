#include "startfrage.h"

#include "hinweisfeld.h"
#include "knopf.h"
#include "modelldienst.h"
#include "sprache.h"
#include "stil.h"
#include "zeile.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
using Stil::abstand;

namespace
{
QString abhilfe(Modellstand::Art art)
{
    switch (art) {
    case Modellstand::Art::ServerFehlt:
        return Sprache::text(u"Im Terminal startet ihn der Befehl „ollama serve“."_s);
    case Modellstand::Art::ModellAnderswo:
        return Sprache::text(u"Wähle auf der Karte Einrichtung eines, das hier rechnet."_s);
    default:
        return Sprache::text(u"Laden lässt es sich auf der Karte Einrichtung."_s);
    }
}
} // namespace

Startfrage::Startfrage(Modelldienst *modelldienst, QWidget *eltern)
    : QWidget(eltern), m_modelldienst(modelldienst), m_spalte(new QVBoxLayout(this))
{
    auto *erneut = new Knopf(u"modellPruefen"_s, Sprache::text(u"Erneut prüfen"_s), this);
    auto *lesen = new Knopf(u"nurLesen"_s, Sprache::text(u"Nur Texte lesen"_s), this);
    auto *nicht = new Knopf(u"startAbbrechen"_s, Sprache::text(u"Abbrechen"_s), this);
    nicht->setFlat(true);
    m_spalte->setContentsMargins(0, 0, 0, 0);
    m_spalte->addWidget(zeile(this, {erneut, lesen, nicht}));
    connect(erneut, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT erneutPruefen();
    });
    connect(lesen, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT nurLesen();
    });
    connect(nicht, &QPushButton::clicked, this, &QWidget::hide);
    Stil::folgen(this, [this] { m_spalte->setSpacing(abstand(8)); });
    hide();
}

void Startfrage::fragen()
{
    delete m_hinweis;
    const QString wie = abhilfe(m_modelldienst->modellstand().art);
    m_hinweis =
        new Hinweisfeld(true, Symbol::Warnung,
                        m_modelldienst->modellMeldung() + u". "_s +
                            Sprache::text(u"So werden die Texte gelesen, aber nichts wird eingeordnet."_s) + u' ' + wie,
                        {}, this);
    m_spalte->insertWidget(0, m_hinweis);
    m_hinweis->show();
    show();
    if (auto *erneut = findChild<Knopf *>(u"modellPruefen"_s))
        erneut->setFocus(Qt::ShortcutFocusReason); // a focus that is to be seen
}
} // namespace quillmar::ablauf
