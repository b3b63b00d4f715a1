#include "fenstersprache.h"

#include "sprache.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

Fenstersprache::Fenstersprache(QObject *vater) : QObject(vater) { laden(); }

QString Fenstersprache::kennung() const { return Sprache::gewaehlteKennung(); }

void Fenstersprache::waehlen(const QString &kennung)
{
    if (kennung == this->kennung())
        return;
    Sprache::setzeGewaehlteKennung(kennung);
    laden();
    Q_EMIT gewechselt();
}

void Fenstersprache::laden()
{
    const QString wirksam = Sprache::wirksameKennung();
    // The system's own locale knows the country as well.
    const QLocale system = QLocale::system();
    QLocale::setDefault(system.name().startsWith(wirksam) ? system : QLocale(wirksam));
    QCoreApplication::removeTranslator(&m_qt);
    if (m_qt.load(u"qtbase_"_s + wirksam, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
}
