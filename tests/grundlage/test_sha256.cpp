#include "sha256.h"

#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillmar::grundlage;

class TestSha256 : public QObject
{
    Q_OBJECT
    QTemporaryDir m_ordner;

    QByteArray datei(const QByteArray &inhalt)
    {
        QFile f(m_ordner.filePath(u"datei"_s));
        if (!f.open(QIODevice::WriteOnly) || f.write(inhalt) != inhalt.size())
            qFatal("cannot write");
        return f.fileName().toUtf8();
    }

private Q_SLOTS:
    // The published vectors of the standard.
    void bekannteWerte_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("leer") << QByteArray() << u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"_s;
        QTest::newRow("abc") << QByteArray("abc")
                             << u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"_s;
        QTest::newRow("zwei Blöcke") << QByteArray("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")
                                     << u"248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"_s;
        QTest::newRow("eine Million a") << QByteArray(1000000, 'a')
                                        << u"cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"_s;
    }

    void bekannteWerte()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, erwartet);
        Sha256 digest;
        digest.dazu(bytes.first(bytes.size() / 3));
        digest.dazu(bytes.sliced(bytes.size() / 3));
        QCOMPARE(Sha256::hex(digest.ende()), erwartet);
        QCOMPARE(Sha256::hex(digest.von(bytes)), erwartet);
        QCOMPARE(sha256Datei(datei(bytes)), erwartet);
    }

    void wasKeineLesbareDateiIst()
    {
        const QByteArray rohr = m_ordner.filePath(u"rohr"_s).toUtf8();
        QCOMPARE(::mkfifo(rohr.constData(), 0600), 0);
        QVERIFY(sha256Datei(rohr).isNull());
        QVERIFY(sha256Datei(m_ordner.path().toUtf8()).isNull());
        QVERIFY(sha256Datei(m_ordner.filePath(u"fehlt"_s).toUtf8()).isNull());
    }

    void derAbbruchWirktMittendrin()
    {
        const QByteArray pfad = datei(QByteArray(1000000, 'a'));
        int gefragt = 0;
        QVERIFY(sha256Datei(pfad, [&] { return ++gefragt == 2; }).isNull());
        QCOMPARE(gefragt, 2);
        QVERIFY(!sha256Datei(pfad, [] { return false; }).isNull());
    }
};

QTEST_GUILESS_MAIN(TestSha256)
#include "test_sha256.moc"
