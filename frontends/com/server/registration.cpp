#include "server/registration.h"

#include "object/entry.h"
#include "object/text.h"
#include "server/identifiers.h"
#include "server/module.h"

#include <olectl.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tablio::com {

namespace {

namespace ids = identifiers;

/// A key under the classes of the machine or the user, and one of its values.
struct Entry {
    std::string key;
    std::string name;
    std::string value;
};

/// The keys that hold all others.
std::vector<std::string> topKeys() {
    std::vector<std::string> keys{"Tablio.Tablio", "Tablio.Tablio.1", "Tablio.TMatrix",
                                  "Tablio.TMatrix.1"};
    for (const char *id :
         {ids::tablioClass, ids::matrixClass, ids::generalPage, ids::columnsPage, ids::entryPage})
        keys.push_back(std::string("CLSID\\") + id);
    for (const char *id : {ids::members, ids::events, ids::matrixMembers})
        keys.push_back(std::string("Interface\\") + id);
    keys.push_back(std::string("TypeLib\\") + ids::library);
    return keys;
}

class Entries {
public:
    Entries() : path_(narrow(modulePath())) {
        addCreatable(ids::tablioClass, "Tablio.Tablio", "Tablio data-entry grid");
        const std::string control = std::string("CLSID\\") + ids::tablioClass;
        add(control + "\\Control");
        add(control + "\\MiscStatus", "0");
        add(control + "\\MiscStatus\\1", std::to_string(miscStatus));
        // The category of all controls.
        add(control + "\\Implemented Categories\\{40FC6ED4-2438-11CF-A3DB-080036F12502}");
        addCreatable(ids::matrixClass, "Tablio.TMatrix", "Tablio matrix of values");
        addClass(ids::generalPage, "Tablio property page General");
        addClass(ids::columnsPage, "Tablio property page Columns");
        addClass(ids::entryPage, "Tablio property page Entry");
        addInterface(ids::members, "_Tablio");
        addInterface(ids::events, "__Tablio");
        addInterface(ids::matrixMembers, "_TMatrix");
        const std::string library = std::string("TypeLib\\") + ids::library + "\\1.0";
        add(library, "Tablio");
        add(library + "\\FLAGS", "0");
        add(library + (sizeof(void *) == 8 ? "\\409\\win64" : "\\409\\win32"), path_);
        add(library + "\\HELPDIR", path_.substr(0, path_.rfind('\\')));
    }

    [[nodiscard]] const std::vector<Entry> &all() const noexcept { return entries_; }

private:
    void add(std::string key, std::string value = {}, std::string name = {}) {
        entries_.push_back({std::move(key), std::move(name), std::move(value)});
    }
    std::string addClass(const char *id, const char *title) {
        const std::string key = std::string("CLSID\\") + id;
        add(key, title);
        add(key + "\\InprocServer32", path_);
        add(key + "\\InprocServer32", "Apartment", "ThreadingModel");
        return key;
    }
    void addCreatable(const char *id, const std::string &name, const char *title) {
        const std::string key = addClass(id, title);
        add(key + "\\ProgID", name + ".1");
        add(key + "\\VersionIndependentProgID", name);
        add(key + "\\Programmable");
        add(key + "\\TypeLib", ids::library);
        add(key + "\\Version", "1.0");
        add(name, title);
        add(name + "\\CLSID", id);
        add(name + "\\CurVer", name + ".1");
        add(name + ".1", title);
        add(name + ".1\\CLSID", id);
    }
    void addInterface(const char *id, const char *name) {
        const std::string key = std::string("Interface\\") + id;
        add(key, name);
        // The platform's own for interfaces that a type library describes.
        add(key + "\\ProxyStubClsid32", "{00020420-0000-0000-C000-000000000046}");
        add(key + "\\TypeLib", ids::library);
        add(key + "\\TypeLib", "1.0", "Version");
    }

    std::string path_;
    std::vector<Entry> entries_;
};

WideText pathOf(std::string_view key) {
    return wide(std::string("Software\\Classes\\").append(key));
}

LSTATUS write(HKEY root, const Entry &entry) {
    HKEY key = nullptr;
    LSTATUS code = RegCreateKeyExW(root, pathOf(entry.key).c_str(), 0, nullptr, 0, KEY_WRITE,
                                   nullptr, &key, nullptr);
    if (code != ERROR_SUCCESS)
        return code;
    if (!entry.value.empty()) {
        const WideText value = wide(entry.value);
        code = RegSetValueExW(key, wide(entry.name).c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE *>(value.c_str()),
                              static_cast<DWORD>((value.size() + 1) * sizeof(OLECHAR)));
    }
    RegCloseKey(key);
    return code;
}

LSTATUS registerIn(HKEY root) {
    const Entries entries;
    for (const Entry &entry : entries.all())
        if (const LSTATUS code = write(root, entry); code != ERROR_SUCCESS)
            return code;
    return ERROR_SUCCESS;
}

LSTATUS unregisterIn(HKEY root) {
    LSTATUS worst = ERROR_SUCCESS;
    for (const std::string &key : topKeys()) {
        const LSTATUS code = RegDeleteTreeW(root, pathOf(key).c_str());
        if (code != ERROR_SUCCESS && code != ERROR_FILE_NOT_FOUND)
            worst = code;
    }
    return worst;
}

bool isForUserOnly() {
    std::array<OLECHAR, 8> text{};
    const WideText name = wide("TABLIO_REGISTER");
    const DWORD length = GetEnvironmentVariableW(name.c_str(), text.data(), text.size());
    return WideView(text.data(), length < text.size() ? length : 0) == wide("user");
}

} // namespace

HRESULT registerServer() noexcept {
    try {
        LSTATUS code = ERROR_ACCESS_DENIED;
        if (!isForUserOnly())
            code = registerIn(HKEY_LOCAL_MACHINE);
        if (code == ERROR_ACCESS_DENIED)
            code = registerIn(HKEY_CURRENT_USER);
        return code == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
    } catch (...) {
        return codeOfException();
    }
}

HRESULT unregisterServer() noexcept {
    try {
        const LSTATUS user = unregisterIn(HKEY_CURRENT_USER);
        const LSTATUS machine = unregisterIn(HKEY_LOCAL_MACHINE);
        return user == ERROR_SUCCESS && machine == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
    } catch (...) {
        return codeOfException();
    }
}

} // namespace tablio::com
