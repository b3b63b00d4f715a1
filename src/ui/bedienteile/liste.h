#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QAbstractListModel>
#include <QListView>

namespace quillmar::bedienteile
{
/** What the rows of a list tell beside Qt::DisplayRole, the first line. */
enum Listenrolle {
    ZweiteZeile = Qt::UserRole + 100, ///< a text, or a list of texts side by side, each of which is cut off by itself
    DritteZeile,                      ///< such a list of three at most; below each other where there is little room
    Marke,                            ///< Symbol before the row, as int; Symbol::Keines keeps the room for one
    Wort,                             ///< at the end of the row; gives way to the lines beside a Zeilentat
    Wortart,                          ///< Schrift of that word, as int: secondary by default, or a warning
    Hauptzeile, ///< 0 or 1: which of the two lines is the one to be read first; the other is secondary
    Gewaehlt,   ///< the row is the chosen one, whatever row is current
    Kennung,    ///< Listenzeile::kennung
    Zeilentat,  ///< Symbol at the end of the row that does something when it is clicked, as int
    Tathilfe    ///< tool tip of that symbol
};

/** A row as data, for lists that are short enough to be held. */
struct Listenzeile {
    QVariant kennung = {}; ///< whose row it is
    QString erste = {};
    QString zweite = {};
    QString wort = {};
    Symbol marke = Symbol::Keines;
    QString ansage = {}; ///< read aloud in place of its lines; empty: those
    bool operator==(const Listenzeile &) const = default;
};

/** Rows as data. The same rows again change nothing. */
class Listenmodell : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;
    void setzen(const QList<Listenzeile> &zeilen);
    [[nodiscard]] const QList<Listenzeile> &zeilen() const { return m_zeilen; }
    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int rolle) const override;

private:
    QList<Listenzeile> m_zeilen;
    bool m_mitMarken = false; ///< some row has one: the others keep the room for it
};

/**
 * A list of rows of up to three lines with a mark, drawn by one delegate: 100,000 rows cost nothing until they are
 * seen. It has no frame and no ground of its own, one look for the chosen row, and asks for no more height than its
 * rows need. Rows with a Qt::CheckStateRole have a box before them, which a click on it ticks, and Space for the
 * current row.
 */
class Liste : public QListView
{
    Q_OBJECT

public:
    /** @p name of the object; @p ansage: what the list is, read aloud. */
    Liste(const QString &name, const QString &ansage, QWidget *eltern = nullptr);

    /** Asks for the height of its rows, at most @p zeilen of them (half where they are higher); otherwise for what is
     * left over. */
    void setzeHoechstens(int zeilen);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /** First and last row that are to be seen; -1 and -2 without rows. */
    [[nodiscard]] std::pair<int, int> sichtbare() const;
    void setModel(QAbstractItemModel *modell) override;
    /** Listenzeile::kennung of the current row; invalid without one. */
    [[nodiscard]] QVariant kennung() const { return currentIndex().data(Kennung); }

Q_SIGNALS:
    /** Rows have come into view, by whatever: scrolling, sizing, another model. */
    void gesehen(int von, int bis);
    /** What Zeilentat shows was clicked. */
    void tatGewuenscht(const QModelIndex &zeile);

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void currentChanged(const QModelIndex &jetzt, const QModelIndex &vorher) override;
    void focusInEvent(QFocusEvent *ereignis) override;
    void changeEvent(QEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;
    void keyPressEvent(QKeyEvent *ereignis) override;
    bool viewportEvent(QEvent *ereignis) override;

private:
    void wiederfinden();
    void zeileZeigen();
    [[nodiscard]] QModelIndex tatzeile(const QPoint &stelle) const;

    int m_hoechstens = 0;
    std::pair<QVariant, int> m_vorher; ///< current row before others came: whose it was, and its place
    QPersistentModelIndex m_gedrueckt; ///< the row whose symbol the button of the mouse is pressed on
};
} // namespace quillmar::bedienteile
