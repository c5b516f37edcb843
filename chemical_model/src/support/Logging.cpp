#include "support/Logging.h"

#include <cstring>
#include <map>
#include <memory>

namespace chem {

namespace {

constexpr const char* defaultCategoryName = "zel.generic";

struct ContentLess
{
    bool operator()(const char* a, const char* b) const { return std::strcmp(a, b) < 0; }
};

using Registry = std::map<const char*, std::unique_ptr<QLoggingCategory>, ContentLess>;

const QLoggingCategory* insertCategory(Registry& registry, const char* name, QtMsgType severity)
{
    auto category = std::make_unique<QLoggingCategory>(name, severity);
    return registry.emplace(name, std::move(category)).first->second.get();
}

} // namespace

const QLoggingCategory* loggingCategory(const char* name, QtMsgType severity, bool create)
{
    static Registry registry;
    if (registry.empty())
        insertCategory(registry, defaultCategoryName, severity);

    const auto found = registry.find(name);
    if (found != registry.end())
        return found->second.get();
    return create ? insertCategory(registry, name, severity)
                  : registry.find(defaultCategoryName)->second.get();
}

const QLoggingCategory& genericCategory()
{
    static const QLoggingCategory* const category =
        createLoggingCategory(defaultCategoryName, QtDebugMsg);
    return *category;
}

namespace {

[[maybe_unused]] const QLoggingCategory& madeWhenTheLibraryLoads = genericCategory();

} // namespace

} // namespace chem
