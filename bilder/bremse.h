#pragma once

#include <QHash>
#include <QTcpServer>

class QTcpSocket;

/**
 * Stands before the demonstration model server and passes everything on, until it is told to hold: then questions to
 * the model, or the fetching of one, stay under way for as long as a picture needs.
 */
class Bremse : public QTcpServer
{
    Q_OBJECT

public:
    explicit Bremse(quint16 dahinter, QObject *vater = nullptr);

    /** Questions that are still let through; the others wait for loslassen(). */
    void halten(int nach) { m_rest = nach; }
    void loslassen();
    /** Questions that wait. */
    [[nodiscard]] qsizetype gehalten() const { return m_wartende.size(); }

private:
    void lesen(QTcpSocket *leitung);
    void weitergeben(QTcpSocket *leitung);
    static void ladenVorspielen(QTcpSocket *leitung);

    static constexpr int alle = -1;
    quint16 m_dahinter;
    int m_rest = alle;
    QList<QTcpSocket *> m_wartende;
    QHash<QTcpSocket *, QTcpSocket *> m_gegenstellen;
};
