#pragma once

#include <string>

// Writes a fresh self-signed certificate for "localhost" and 127.0.0.1 and its private key
// (PEM). The certificate is its own CA, so a client trusts it by naming the certificate file
// as an extra CA. Made at run time so that no private key lives in the repository.
bool WriteSelfSignedCertificate(const std::string& CertPath, const std::string& KeyPath, std::string& OutError);

// A certificate and key in a fresh temporary folder, removed again with the object.
class FTemporaryCertificate
{
public:
	FTemporaryCertificate();
	~FTemporaryCertificate();
	FTemporaryCertificate(const FTemporaryCertificate&) = delete;
	FTemporaryCertificate& operator=(const FTemporaryCertificate&) = delete;

	bool IsValid() const { return Error.empty(); }
	const std::string& GetError() const { return Error; }
	const std::string& GetFolder() const { return Folder; }
	const std::string& GetCertFile() const { return CertFile; }
	const std::string& GetKeyFile() const { return KeyFile; }

private:
	std::string Folder;
	std::string CertFile;
	std::string KeyFile;
	std::string Error;
};
