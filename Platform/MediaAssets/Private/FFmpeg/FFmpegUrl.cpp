#include "FFmpegUrl.h"

#include <algorithm>
#include <cctype>

namespace
{
	// Only these reach the network. Anything else libavformat knows (concat, subfile, pipe, data,
	// rtmp, ...) could read what the caller never meant to expose, so it is refused by name.
	bool IsNetworkScheme(const std::string& Scheme)
	{
		return Scheme == "http" || Scheme == "https" || Scheme == "ftp";
	}

	std::string ToLower(std::string Text)
	{
		std::transform(Text.begin(), Text.end(), Text.begin(), [](unsigned char C) { return static_cast<char>(std::tolower(C)); });
		return Text;
	}

	// The scheme before the first ':' when the text starts like a URL (a letter, then letters,
	// digits, '+', '-' or '.'). One letter is a drive name, not a scheme.
	std::string FindScheme(const std::string& Text)
	{
		const size_t Colon = Text.find(':');
		if (Colon == std::string::npos || Colon < 2 || !std::isalpha(static_cast<unsigned char>(Text[0])))
		{
			return std::string();
		}
		for (size_t Index = 1; Index < Colon; ++Index)
		{
			const unsigned char C = static_cast<unsigned char>(Text[Index]);
			if (!std::isalnum(C) && C != '+' && C != '-' && C != '.')
			{
				return std::string();
			}
		}
		return ToLower(Text.substr(0, Colon));
	}

	int HexValue(char C)
	{
		if (C >= '0' && C <= '9')
		{
			return C - '0';
		}
		const char Lower = static_cast<char>(std::tolower(static_cast<unsigned char>(C)));
		return Lower >= 'a' && Lower <= 'f' ? Lower - 'a' + 10 : -1;
	}

	// file:///a%20b.mp4 and file://localhost/a.mp4 name the path /a b.mp4 and /a.mp4; any other
	// host cannot be read as a local file. Returns false when the URL names no local path.
	bool FileUrlToPath(const std::string& Url, std::string& OutPath)
	{
		std::string Rest = Url.substr(5);
		if (Rest.rfind("//", 0) == 0)
		{
			const size_t PathStart = Rest.find('/', 2);
			const std::string Host = ToLower(Rest.substr(2, PathStart == std::string::npos ? std::string::npos : PathStart - 2));
			if (PathStart == std::string::npos || (!Host.empty() && Host != "localhost"))
			{
				return false;
			}
			Rest = Rest.substr(PathStart);
		}
		OutPath.clear();
		for (size_t Index = 0; Index < Rest.size(); ++Index)
		{
			if (Rest[Index] == '%' && Index + 2 < Rest.size() && HexValue(Rest[Index + 1]) >= 0 && HexValue(Rest[Index + 2]) >= 0)
			{
				OutPath += static_cast<char>(HexValue(Rest[Index + 1]) * 16 + HexValue(Rest[Index + 2]));
				Index += 2;
			}
			else
			{
				OutPath += Rest[Index];
			}
		}
		return !OutPath.empty();
	}
}

FFmpegLocation FFmpegResolveLocation(const std::string& UrlOrPath, const std::vector<std::string>& AllowedSchemes)
{
	FFmpegLocation Location;
	if (UrlOrPath.empty())
	{
		Location.Error = "empty media location";
		return Location;
	}
	const std::string Scheme = FindScheme(UrlOrPath);
	const std::string Kind = Scheme.empty() ? std::string("file") : Scheme;
	if (Kind != "file" && !IsNetworkScheme(Kind))
	{
		Location.Error = "unsupported scheme '" + Kind + "'";
		return Location;
	}
	if (std::find(AllowedSchemes.begin(), AllowedSchemes.end(), Kind) == AllowedSchemes.end())
	{
		Location.Error = Kind == "file" ? std::string("local files are not allowed here") : "scheme '" + Kind + "' is not allowed here";
		return Location;
	}

	Location.Scheme = Kind;
	if (Kind == "file")
	{
		std::string Path = UrlOrPath;
		if (!Scheme.empty() && !FileUrlToPath(UrlOrPath, Path))
		{
			Location = FFmpegLocation();
			Location.Error = "not a local file URL";
			return Location;
		}
		// The prefix keeps a path with a colon in it from being read as another protocol.
		Location.Address = "file:" + Path;
		Location.ProtocolWhitelist = "file";
		return Location;
	}

	Location.bNetwork = true;
	Location.Address = Kind + UrlOrPath.substr(Scheme.size());
	// A web address may redirect between http and https, go through a proxy named by http_proxy
	// (https through one needs the CONNECT tunnel) and serve an encrypted playlist.
	Location.ProtocolWhitelist = Kind == "ftp" ? "ftp,tcp" : "http,https,httpproxy,tcp,tls,crypto";
	return Location;
}

bool FFmpegCanPlayUrl(const std::string& Url)
{
	const std::string Scheme = FindScheme(Url);
	if (!IsNetworkScheme(Scheme))
	{
		return false;
	}
	const size_t HostStart = Scheme.size() + 3;
	return Url.compare(Scheme.size(), 3, "://") == 0 && Url.size() > HostStart && Url[HostStart] != '/';
}
