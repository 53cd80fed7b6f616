#pragma once

// The types of the presentation and the pages, registered in the QML module
// "Zorvane" that the shell owns. Their libraries sit below the shell and build
// without it; the module names them here as foreign types.

#include "checksums/HashAlgo.h"
#include "checksums/HashAlgoVector.h"
#include "checksums/OpenSslChecksumsPage.h"
#include "checksums/OpenSslChecksumsViewModel.h"
#include "csr/CertSigningRequestPage.h"
#include "csr/CertSigningRequestViewModel.h"
#include "presentation/AncestorSource.h"
#include "presentation/DefinitionGrid.h"
#include "presentation/GridHelpers.h"
#include "presentation/Helpers.h"
#include "presentation/InverseBooleanToVisibilityConverter.h"
#include "selfsigned/SelfSignedCertPage.h"
#include "selfsigned/SelfSignedCertViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace Zorvane::ModuleTypes {

struct HashAlgoForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::HashAlgo)
    QML_NAMED_ELEMENT(HashAlgo)
    QML_UNCREATABLE("HashAlgo objects come from the digest catalogue")
};

struct HashAlgoVectorForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::HashAlgoVector)
    QML_NAMED_ELEMENT(HashAlgoVector)
    QML_UNCREATABLE("Vectors belong to the checksum view model")
};

struct OpenSslChecksumsPageForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::OpenSslChecksumsPage)
    QML_NAMED_ELEMENT(OpenSslChecksumsPage)
};

struct OpenSslChecksumsViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::OpenSslChecksumsViewModel)
    QML_NAMED_ELEMENT(OpenSslChecksumsViewModel)
};

struct CertSigningRequestPageForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::CertSigningRequestPage)
    QML_NAMED_ELEMENT(CertSigningRequestPage)
};

struct CertSigningRequestViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::CertSigningRequestViewModel)
    QML_NAMED_ELEMENT(CertSigningRequestViewModel)
};

struct SelfSignedCertPageForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::SelfSignedCertPage)
    QML_NAMED_ELEMENT(SelfSignedCertPage)
};

struct SelfSignedCertViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::SelfSignedCertViewModel)
    QML_NAMED_ELEMENT(SelfSignedCertViewModel)
};

struct InverseBooleanToVisibilityConverterForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::InverseBooleanToVisibilityConverter)
    QML_NAMED_ELEMENT(InverseBooleanToVisibilityConverter)
};

struct AncestorSourceAttachedForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::AncestorSourceAttached)
    QML_ANONYMOUS
};

struct AncestorSourceForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::AncestorSource)
    QML_NAMED_ELEMENT(AncestorSource)
    QML_UNCREATABLE("AncestorSource has attached properties only")
    QML_ATTACHED(Zorvane::AncestorSourceAttached)

public:
    static Zorvane::AncestorSourceAttached* qmlAttachedProperties(QObject* object)
    {
        return Zorvane::AncestorSource::qmlAttachedProperties(object);
    }
};

struct DefinitionGridAttachedForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::DefinitionGridAttached)
    QML_ANONYMOUS
};

struct DefinitionGridForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::DefinitionGrid)
    QML_NAMED_ELEMENT(DefinitionGrid)
    QML_ATTACHED(Zorvane::DefinitionGridAttached)

public:
    static Zorvane::DefinitionGridAttached* qmlAttachedProperties(QObject* object)
    {
        return Zorvane::DefinitionGrid::qmlAttachedProperties(object);
    }
};

struct GridHelpersAttachedForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::GridHelpersAttached)
    QML_ANONYMOUS
};

struct GridHelpersForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::GridHelpers)
    QML_NAMED_ELEMENT(GridHelpers)
    QML_UNCREATABLE("GridHelpers has attached properties only")
    QML_ATTACHED(Zorvane::GridHelpersAttached)

public:
    static Zorvane::GridHelpersAttached* qmlAttachedProperties(QObject* object)
    {
        return Zorvane::GridHelpers::qmlAttachedProperties(object);
    }
};

struct HelpersForeign
{
    Q_GADGET
    QML_FOREIGN(Zorvane::Helpers)
    QML_NAMED_ELEMENT(Helpers)
    QML_SINGLETON

public:
    static Zorvane::Helpers* create(QQmlEngine* qml, QJSEngine* js)
    {
        return Zorvane::Helpers::create(qml, js);
    }
};

} // namespace Zorvane::ModuleTypes
