#pragma once

#include <QWidget>

class Balken;
class Elidiertext;
class QGridLayout;
class QLabel;
class Umbruchtext;
class Zustand;

/** The section of the proposal: what the file is called today, what it will be called, how sure the model is. */
class Vorschlagsteil : public QWidget
{
    Q_OBJECT

public:
    explicit Vorschlagsteil(Zustand *zustand, QWidget *eltern = nullptr);

    /** Short of height: no explanation, certainty beside the title. */
    void setzeDicht(bool dicht, bool schmal);
    void setzeBeschriftungsbreite(int breite);
    [[nodiscard]] int volleHoehe() const;
    [[nodiscard]] static QStringList beschriftungen();

private:
    QLabel *beschriftung(const QString &text, const QString &hilfe);
    void anordnen();
    void masse();
    void zeigen();
    void sicherheitZeigen();

    Zustand *m_zustand;
    QGridLayout *m_raster;
    QWidget *m_kopf;
    QLabel *m_titel;
    QLabel *m_erklaerung;
    QLabel *m_bisherSchild;
    QLabel *m_neuSchild;
    QLabel *m_sicherheitSchild;
    QWidget *m_bisherZeile;
    Elidiertext *m_bisher;
    Elidiertext *m_bisherOrdner;
    QWidget *m_neu; ///< name and path, with room for a name of two lines
    Umbruchtext *m_name;
    Umbruchtext *m_pfad;
    QWidget *m_sicherheit;
    Balken *m_balken;
    QLabel *m_prozent;
    bool m_dicht = false;
    bool m_schmal = false; ///< nothing stands side by side
};
