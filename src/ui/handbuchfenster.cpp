#include "handbuchfenster.h"

#include "bau.h"
#include "sprache.h"

#include <QFile>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
using Stil::mass;

namespace
{
constexpr int bildbreite = 780;

/** Beside the language files, installed and in the build tree. */
QString handbuchordner() { return Sprache::mitgelieferterOrdner() + u"/../Handbuch"_s; }

/** German for those who read German, English for all others. */
QString handbuchdatei()
{
    const bool deutsch = Sprache::wirksameKennung().startsWith(u"de"_s);
    return handbuchordner() + (deutsch ? u"/handbuch.md"_s : u"/handbook.md"_s);
}

/** Pictures no wider than the text. */
class Lesetext : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int art, const QUrl &name) override
    {
        QVariant geladen = QTextBrowser::loadResource(art, name);
        if (art != QTextDocument::ImageResource)
            return geladen;
        const QImage bild = QImage::fromData(geladen.toByteArray());
        const int breite = mass(bildbreite);
        return bild.width() > breite ? bild.scaledToWidth(breite, Qt::SmoothTransformation) : bild;
    }
};

/** A heading the way links name it. */
QString marke(const QString &ueberschrift)
{
    static const QRegularExpression anderes(u"[^\\w -]"_s, QRegularExpression::UseUnicodePropertiesOption);
    return ueberschrift.toLower().remove(anderes).replace(u' ', u'-');
}
} // namespace

Handbuchfenster::Handbuchfenster(QWidget *eltern) : QWidget(eltern, Qt::Window), m_text(new Lesetext(this))
{
    setObjectName(u"handbuch"_s);
    setWindowTitle(Sprache::text(u"Handbuch"_s));
    fuellen(this, spalte({m_text}));
    bezeichnen(m_text, u"handbuchtext"_s, windowTitle());
    m_text->setOpenLinks(false);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setSearchPaths({handbuchordner()});
    m_text->document()->setDocumentMargin(mass(24));
    connect(m_text, &QTextBrowser::anchorClicked, this, &Handbuchfenster::verweisFolgen);
    auto *zu = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(zu, &QShortcut::activated, this, &QWidget::close);
    resize(mass(860), mass(760));
}

void Handbuchfenster::zeigen(const QString &kapitel)
{
    QFile datei(handbuchdatei());
    m_text->setMarkdown(datei.open(QIODevice::ReadOnly)
                            ? QString::fromUtf8(datei.readAll())
                            : Sprache::text(u"Das Handbuch fehlt: Die Installation ist unvollständig"_s));
    show();
    raise();
    activateWindow();
    verweisFolgen(QUrl(u'#' + kapitel));
}

/** Only places in the handbook itself: nothing here opens a page of the network. */
void Handbuchfenster::verweisFolgen(const QUrl &ziel)
{
    for (QTextBlock absatz = m_text->document()->begin(); absatz.isValid(); absatz = absatz.next()) {
        if (absatz.blockFormat().headingLevel() == 0 || marke(absatz.text()) != ziel.fragment(QUrl::FullyDecoded))
            continue;
        m_text->moveCursor(QTextCursor::End); // so that the heading comes to the top
        m_text->setTextCursor(QTextCursor(absatz));
        return;
    }
}
} // namespace quillmar::ui
