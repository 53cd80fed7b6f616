#pragma once

// Owners for every OpenSSL object the program makes, declared once so that no
// error road has to free anything by hand.

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pkcs12.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>

#include <memory>

namespace Zorvane {

template <auto FreeFunction>
struct OpenSslDeleter
{
    template <class T>
    void operator()(T* object) const noexcept
    {
        FreeFunction(object);
    }
};

template <class T, auto FreeFunction>
using OpenSslPtr = std::unique_ptr<T, OpenSslDeleter<FreeFunction>>;

// A stack owns the extensions pushed onto it.
inline void free_extension_stack(STACK_OF(X509_EXTENSION) * stack) noexcept
{
    sk_X509_EXTENSION_pop_free(stack, X509_EXTENSION_free);
}

using BioPtr = OpenSslPtr<BIO, BIO_vfree>;
using EvpPkeyPtr = OpenSslPtr<EVP_PKEY, EVP_PKEY_free>;
using EvpMdPtr = OpenSslPtr<EVP_MD, EVP_MD_free>;
using EvpMdCtxPtr = OpenSslPtr<EVP_MD_CTX, EVP_MD_CTX_free>;
using X509Ptr = OpenSslPtr<X509, X509_free>;
using X509ReqPtr = OpenSslPtr<X509_REQ, X509_REQ_free>;
using X509ExtensionPtr = OpenSslPtr<X509_EXTENSION, X509_EXTENSION_free>;
using ExtensionStackPtr = OpenSslPtr<STACK_OF(X509_EXTENSION), free_extension_stack>;
using Pkcs12Ptr = OpenSslPtr<PKCS12, PKCS12_free>;

} // namespace Zorvane
