#include "TestCertificate.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include <openssl/bn.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509.h>
#include <openssl/x509v3.h>
#include <sys/stat.h>

namespace
{
	struct FOpenSslFree
	{
		void operator()(EVP_PKEY* Key) const { EVP_PKEY_free(Key); }
		void operator()(X509* Certificate) const { X509_free(Certificate); }
		void operator()(FILE* File) const { std::fclose(File); }
	};

	std::string LastOpenSslError(const char* Step)
	{
		char Text[256] = {};
		ERR_error_string_n(ERR_get_error(), Text, sizeof(Text));
		ERR_clear_error();
		return std::string(Step) + ": " + Text;
	}

	bool AddExtension(X509* Certificate, int Nid, const char* Value)
	{
		X509V3_CTX Context;
		X509V3_set_ctx_nodb(&Context);
		X509V3_set_ctx(&Context, Certificate, Certificate, nullptr, nullptr, 0);
		X509_EXTENSION* Extension = X509V3_EXT_conf_nid(nullptr, &Context, Nid, Value);
		if (Extension == nullptr)
		{
			return false;
		}
		const bool bAdded = X509_add_ext(Certificate, Extension, -1) == 1;
		X509_EXTENSION_free(Extension);
		return bAdded;
	}
}

bool WriteSelfSignedCertificate(const std::string& CertPath, const std::string& KeyPath, std::string& OutError)
{
	// P-256 rather than RSA: generating it takes microseconds, which keeps the tests fast.
	std::unique_ptr<EVP_PKEY, FOpenSslFree> Key(EVP_EC_gen("P-256"));
	if (!Key)
	{
		OutError = LastOpenSslError("key generation");
		return false;
	}
	std::unique_ptr<X509, FOpenSslFree> Certificate(X509_new());
	unsigned char Serial[16];
	RAND_bytes(Serial, sizeof(Serial));
	Serial[0] &= 0x7F;
	BIGNUM* SerialNumber = BN_bin2bn(Serial, sizeof(Serial), nullptr);
	BN_to_ASN1_INTEGER(SerialNumber, X509_get_serialNumber(Certificate.get()));
	BN_free(SerialNumber);

	X509_set_version(Certificate.get(), X509_VERSION_3);
	X509_gmtime_adj(X509_getm_notBefore(Certificate.get()), -3600);
	X509_gmtime_adj(X509_getm_notAfter(Certificate.get()), 60L * 60 * 24 * 30);
	X509_set_pubkey(Certificate.get(), Key.get());
	X509_NAME* Name = X509_get_subject_name(Certificate.get());
	X509_NAME_add_entry_by_txt(Name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("localhost"), -1, -1, 0);
	X509_NAME_add_entry_by_txt(Name, "O", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("Tavrine local backend"), -1, -1, 0);
	X509_set_issuer_name(Certificate.get(), Name);

	if (!AddExtension(Certificate.get(), NID_basic_constraints, "critical,CA:TRUE")
		|| !AddExtension(Certificate.get(), NID_key_usage, "critical,digitalSignature,keyCertSign")
		|| !AddExtension(Certificate.get(), NID_ext_key_usage, "serverAuth")
		|| !AddExtension(Certificate.get(), NID_subject_key_identifier, "hash")
		|| !AddExtension(Certificate.get(), NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1"))
	{
		OutError = LastOpenSslError("certificate extensions");
		return false;
	}
	if (X509_sign(Certificate.get(), Key.get(), EVP_sha256()) == 0)
	{
		OutError = LastOpenSslError("signing");
		return false;
	}

	{
		std::unique_ptr<FILE, FOpenSslFree> KeyFile(std::fopen(KeyPath.c_str(), "wb"));
		if (!KeyFile)
		{
			OutError = "cannot write the key file '" + KeyPath + "'";
			return false;
		}
		chmod(KeyPath.c_str(), S_IRUSR | S_IWUSR);
		if (PEM_write_PrivateKey(KeyFile.get(), Key.get(), nullptr, nullptr, 0, nullptr, nullptr) != 1)
		{
			OutError = LastOpenSslError("writing the key");
			return false;
		}
	}
	std::unique_ptr<FILE, FOpenSslFree> CertFile(std::fopen(CertPath.c_str(), "wb"));
	if (!CertFile)
	{
		OutError = "cannot write the certificate file '" + CertPath + "'";
		return false;
	}
	if (PEM_write_X509(CertFile.get(), Certificate.get()) != 1)
	{
		OutError = LastOpenSslError("writing the certificate");
		return false;
	}
	return true;
}

FTemporaryCertificate::FTemporaryCertificate()
{
	std::error_code Failure;
	const std::filesystem::path Base = std::filesystem::temp_directory_path(Failure);
	std::string Template = (Base / "tavrine-cert-XXXXXX").string();
	if (Failure || mkdtemp(Template.data()) == nullptr)
	{
		Error = "cannot make a temporary folder for the certificate";
		return;
	}
	Folder = Template;
	CertFile = Folder + "/cert.pem";
	KeyFile = Folder + "/key.pem";
	WriteSelfSignedCertificate(CertFile, KeyFile, Error);
}

FTemporaryCertificate::~FTemporaryCertificate()
{
	if (!Folder.empty())
	{
		std::error_code Ignored;
		std::filesystem::remove_all(Folder, Ignored);
	}
}
