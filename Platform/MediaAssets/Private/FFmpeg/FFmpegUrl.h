#pragma once

#include <string>
#include <vector>

/**
 * A media location checked and made ready for libavformat: what to open and which protocols it
 * may use. Error is set, and the rest empty, when the location must not be opened.
 */
struct FFmpegLocation
{
	/** Lower-case scheme; "file" for a plain path. */
	std::string Scheme;
	/** What libavformat opens: a path behind "file:" or the URL with its scheme lowered. */
	std::string Address;
	/** Value of libavformat's protocol_whitelist option: nothing outside it is ever opened. */
	std::string ProtocolWhitelist;
	/** True for http, https and ftp: such opens get a timeout and can be aborted. */
	bool bNetwork = false;
	/** Why the location is refused, or empty. */
	std::string Error;
};

/**
 * Reads a path or URL. Plain paths and file: URLs are local files; http, https and ftp are
 * network media; every other scheme is refused, as is any scheme missing from AllowedSchemes
 * ("file" stands for local files).
 */
FFmpegLocation FFmpegResolveLocation(const std::string& UrlOrPath, const std::vector<std::string>& AllowedSchemes);

/** True for an http://, https:// or ftp:// URL with a host, in any letter case. */
bool FFmpegCanPlayUrl(const std::string& Url);
