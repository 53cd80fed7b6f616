#pragma once

#include "certs/openssl_ptr.h"

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
// file is never accessible to anyone else, not even for an instant: a new one is
// created owner-only, an existing one restricted before anything is written.
// Only a regular file takes a secret; a pipe, device or socket there, or a
// symbolic link that another user planted, is refused as a failed open. A
// failure raises.
BioPtr OpenOutputBio(const std::string& path, FileAccess access);

// Takes the result of a write to the file and pushes the bytes on to the disk:
// a write that failed, or whose flush failed, raises.
void commit_output(BIO* file, int writeResult);

// One PKCS#8 PEM block, encrypted when a cipher is given, committed to the
// disk. A failure raises.
void write_private_key(BIO* file, EVP_PKEY* key, const EVP_CIPHER* cipher,
                       const std::string& passphrase);

} // namespace Zorvane
