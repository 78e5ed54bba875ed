// The few functions of the cipher library that make a try slow, or different each time. The engine finds these first;
// one that is built on another library goes without.

#include "cipher.h"

#include "Random.h"

#include <dlfcn.h>

#include <algorithm>
#include <map>
#include <string>
#include <tuple>

namespace {

quint64 cipherSeed = 0;

faults::Random &chance()
{
    static faults::Random numbers(0);
    return numbers;
}

using Question = std::tuple<std::string, std::string, int, const void *, int>;

/// Opening a file costs tens of thousands of rounds of hashing, the same ones for the same password and salt. Most
/// tries work on copies of a few files: each such key is made once, and children inherit it.
template <typename Make>
int answerOnce(const Question &question, unsigned char *key, Make make)
{
    static std::map<Question, std::string> known;
    const auto size = static_cast<size_t>(std::get<4>(question));
    if (const auto found = known.find(question); found != known.end()) {
        found->second.copy(reinterpret_cast<char *>(key), size);
        return 1;
    }
    const int answer = make();
    if (answer == 1)
        known.emplace(question, std::string(reinterpret_cast<const char *>(key), size));
    return answer;
}

std::string textOf(const void *bytes, int size)
{
    return {static_cast<const char *>(bytes), static_cast<size_t>(size)};
}

} // namespace

void faults::seedCipher(quint64 seed)
{
    cipherSeed = seed;
    restartCipher();
}

void faults::restartCipher()
{
    chance() = Random(cipherSeed);
}

extern "C" {

int RAND_bytes(unsigned char *bytes, int size);
int PKCS5_PBKDF2_HMAC(const char *password, int passwordSize, const unsigned char *salt, int saltSize, int rounds,
    const void *digest, int keySize, unsigned char *key);
int PKCS5_PBKDF2_HMAC_SHA1(const char *password, int passwordSize, const unsigned char *salt, int saltSize, int rounds,
    int keySize, unsigned char *key);

int RAND_bytes(unsigned char *bytes, int size)
{
    std::generate_n(bytes, size, [] { return static_cast<unsigned char>(chance().below(256)); });
    return 1;
}

int PKCS5_PBKDF2_HMAC(const char *password, int passwordSize, const unsigned char *salt, int saltSize, int rounds,
    const void *digest, int keySize, unsigned char *key)
{
    static const auto real = reinterpret_cast<decltype(&PKCS5_PBKDF2_HMAC)>(dlsym(RTLD_NEXT, "PKCS5_PBKDF2_HMAC"));
    return answerOnce({textOf(password, passwordSize), textOf(salt, saltSize), rounds, digest, keySize}, key,
        [=] { return real(password, passwordSize, salt, saltSize, rounds, digest, keySize, key); });
}

int PKCS5_PBKDF2_HMAC_SHA1(const char *password, int passwordSize, const unsigned char *salt, int saltSize, int rounds,
    int keySize, unsigned char *key)
{
    static const auto real =
        reinterpret_cast<decltype(&PKCS5_PBKDF2_HMAC_SHA1)>(dlsym(RTLD_NEXT, "PKCS5_PBKDF2_HMAC_SHA1"));
    return answerOnce({textOf(password, passwordSize), textOf(salt, saltSize), rounds, nullptr, keySize}, key,
        [=] { return real(password, passwordSize, salt, saltSize, rounds, keySize, key); });
}
}
