// Renders the application's artwork to a PNG of one size, for the icon theme.
// Used by the build only.

#include <QGuiApplication>
#include <QIcon>
#include <QImage>

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s SVG SIZE PNG\n", argv[0]);
        return 2;
    }
    QGuiApplication app(argc, argv);
    const int size = QString::fromLocal8Bit(argv[2]).toInt();
    const QImage image = QIcon(QString::fromLocal8Bit(argv[1])).pixmap(size, size).toImage();
    if (image.isNull() || image.width() != size ||
        !image.save(QString::fromLocal8Bit(argv[3]), "PNG")) {
        std::fprintf(stderr, "cannot render %s at %d\n", argv[1], size);
        return 1;
    }
    return 0;
}
