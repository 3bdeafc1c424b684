#pragma once

#include <string>
#include <utility>
#include <vector>

namespace HeaderTool
{
	/** Key/value metadata of one reflected item. Keys keep the order they were first written in. */
	struct MetaData
	{
		/** Sets Key to Value, in place when the key is already there. */
		void Set(const std::string& Key, const std::string& Value)
		{
			for (std::pair<std::string, std::string>& Entry : Entries)
			{
				if (Entry.first == Key)
				{
					Entry.second = Value;
					return;
				}
			}
			Entries.emplace_back(Key, Value);
		}

		/** The value of Key, or null when it was never set. */
		const std::string* Find(const std::string& Key) const
		{
			for (const std::pair<std::string, std::string>& Entry : Entries)
			{
				if (Entry.first == Key)
				{
					return &Entry.second;
				}
			}
			return nullptr;
		}

		// The pairs in the order the generated code lists them.
		std::vector<std::pair<std::string, std::string>> Entries;
	};
}
