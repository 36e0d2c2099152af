#pragma once

#include "rom/file_io.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace velko::test {

// What the pages of a web site on disk refer to, read without a browser. It knows as much of HTML
// as our own pages use: attributes in double quotes.
class SiteReader {
public:
    explicit SiteReader(std::filesystem::path folder) : m_folder(std::move(folder)) { }

    std::string file(const std::string& name) const
    {
        const auto text = loadTextFile(m_folder / name);
        EXPECT_TRUE(text) << name;
        return text.value_or("");
    }

    // Every link of every page leads to a file of the site, and to an id of that page; no id is
    // there twice; nothing is loaded from elsewhere; every link has a text to be seen.
    void expectWhole() const
    {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
            if (entry.path().extension() != ".html")
                continue;
            expectLinksLead(entry.path().filename().string());
            expectLinksAreSeen(entry.path().filename().string());
        }
    }

    std::multiset<std::string> values(const std::string& page, const std::string& attribute) const
    {
        const std::string html = file(page);
        const std::regex pattern(" " + attribute + "=\"([^\"]*)\"");
        std::multiset<std::string> found;
        for (std::sregex_iterator i(html.begin(), html.end(), pattern), end; i != end; ++i)
            found.insert((*i)[1]);
        return found;
    }

private:
    const std::multiset<std::string>& ids(const std::string& page) const
    {
        const auto known = m_ids.find(page);
        return known != m_ids.end() ? known->second
                                    : m_ids.emplace(page, values(page, "id")).first->second;
    }

    void expectLinksLead(const std::string& page) const
    {
        for (const std::string& id : ids(page))
            EXPECT_EQ(ids(page).count(id), 1U) << page << ": " << id;
        for (const char* const attribute : {"href", "src"}) {
            for (const std::string& link : values(page, attribute)) {
                if (link != "data:,") // says that there is no icon
                    expectLeads(page, link);
            }
        }
    }

    void expectLinksAreSeen(const std::string& page) const
    {
        static const std::regex link("<a [^>]*>(.*?)</a>");
        static const std::regex unseen("<[^>]*>|\\s");
        const std::string html = file(page);
        for (std::sregex_iterator i(html.begin(), html.end(), link), end; i != end; ++i)
            EXPECT_NE(std::regex_replace((*i)[1].str(), unseen, ""), "") << page << ": " << (*i)[0];
    }

    void expectLeads(const std::string& page, const std::string& link) const
    {
        const std::size_t hash = link.find('#');
        const std::string target = hash == 0 ? page : link.substr(0, hash);
        EXPECT_EQ(target.find_first_of("/:"), std::string::npos) << page << ": " << link;
        ASSERT_TRUE(std::filesystem::is_regular_file(m_folder / target)) << page << ": " << link;
        if (hash != std::string::npos) {
            EXPECT_TRUE(ids(target).contains(link.substr(hash + 1))) << page << ": " << link;
        }
    }

    std::filesystem::path m_folder;
    mutable std::map<std::string, std::multiset<std::string>> m_ids;
};

} // namespace velko::test
