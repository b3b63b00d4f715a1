#pragma once

#include <QLabel>

class QLineEdit;

namespace quillmar::pruefung
{
/** A few words at the right end of a field, beside its text; only a sign where the field has no room for them. */
class Feldnotiz : public QLabel
{
    Q_OBJECT

public:
    explicit Feldnotiz(QLineEdit *feld);

    /** Empty: none. */
    void setzen(const QString &text);
    [[nodiscard]] const QString &notiz() const { return m_text; }

protected:
    bool eventFilter(QObject *ziel, QEvent *ereignis) override;

private:
    void ordnen();

    QLineEdit *m_feld;
    QString m_text;
};
} // namespace quillmar::pruefung
