#pragma once

#include "openssl_ptr.h"

#include <cstdint>
#include <string>

namespace Zorvane {

// Whether an output file holds a secret and so must be readable by its owner only.
enum class FileAccess
{
    Shared,
    OwnerOnly,
};

// A new RSA key of the given modulus size; OpenSSL's refusal raises.
EvpPkeyPtr generate_rsa_key(std::int32_t bits);

// The cipher for the private key file: AES-256-CBC under a pass phrase, none without.
const EVP_CIPHER* private_key_cipher(bool hasPassphrase);

// Opens a UTF-8 path for binary output, truncating what is there. An owner-only
// file is restricted before anything is written to it. A failure raises.
BioPtr OpenOutputBio(const std::string& path, FileAccess access);

// One PKCS#8 PEM block, encrypted when a cipher is given. A failure raises.
void write_private_key(BIO* file, EVP_PKEY* key, const EVP_CIPHER* cipher,
                       const std::string& passphrase);

} // namespace Zorvane
