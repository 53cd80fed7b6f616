#include "shell/ActivationFactory.h"

#include "checksums/OpenSslChecksumsViewModel.h"
#include "csr/CertSigningRequestViewModel.h"
#include "platform/HResultError.h"
#include "presentation/InverseBooleanToVisibilityConverter.h"
#include "selfsigned/SelfSignedCertViewModel.h"
#include "shell/MainWindow.h"

#include <QHash>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QUrl>

#include <functional>

namespace Zorvane::ActivationFactory {

namespace {

const QHash<QString, QString>& pageMarkup()
{
    static const QHash<QString, QString> markup{
        {QStringLiteral("Zorvane.SelfSignedCertPage"),
         QStringLiteral("qrc:/Zorvane/selfsigned/SelfSignedCertPage.qml")},
        {QStringLiteral("Zorvane.CertSigningRequestPage"),
         QStringLiteral("qrc:/Zorvane/csr/CertSigningRequestPage.qml")},
        {QStringLiteral("Zorvane.OpenSslChecksumsPage"),
         QStringLiteral("qrc:/Zorvane/checksums/OpenSslChecksumsPage.qml")},
    };
    return markup;
}

const QHash<QString, std::function<QObject*()>>& plainClasses()
{
    static const QHash<QString, std::function<QObject*()>> classes{
        {QStringLiteral("Zorvane.SelfSignedCertViewModel"),
         [] {
             return new SelfSignedCertViewModel;
         }},
        {QStringLiteral("Zorvane.CertSigningRequestViewModel"),
         [] {
             return new CertSigningRequestViewModel;
         }},
        {QStringLiteral("Zorvane.OpenSslChecksumsViewModel"),
         [] {
             return new OpenSslChecksumsViewModel;
         }},
        {QStringLiteral("Zorvane.InverseBooleanToVisibilityConverter"),
         [] {
             return new InverseBooleanToVisibilityConverter;
         }},
    };
    return classes;
}

// Classes that exist but are not made this way: static helpers, and digests,
// which come from the catalogue or their own factory.
bool hasNoInstances(const QString& fullName)
{
    static const QStringList names{
        QStringLiteral("Zorvane.Helpers"), QStringLiteral("Zorvane.GridHelpers"),
        QStringLiteral("Zorvane.AncestorSource"), QStringLiteral("Zorvane.HashAlgo")};
    return names.contains(fullName);
}

QObject* createPage(QQmlEngine& engine, const QString& url)
{
    QQmlComponent component(&engine, QUrl(url));
    QObject* page = component.create();
    if (page == nullptr) {
        throw HResultError(HResult::Unexpected, component.errorString().toStdString());
    }
    return page;
}

} // namespace

QObject* ActivateInstance(QQmlEngine& engine, const QString& fullName)
{
    if (const auto page = pageMarkup().constFind(fullName); page != pageMarkup().cend()) {
        return createPage(engine, *page);
    }
    if (fullName == QLatin1String("Zorvane.MainWindow")) {
        return new MainWindow(engine); // its markup needs the engine
    }
    if (const auto make = plainClasses().constFind(fullName); make != plainClasses().cend()) {
        return (*make)();
    }
    if (hasNoInstances(fullName)) {
        throw HResultError(HResult::NotImplemented);
    }
    throw HResultError(HResult::ClassNotAvailable);
}

} // namespace Zorvane::ActivationFactory
