#include "peers.h"

#include <SimpleIni.h>
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <QSettings>
#include <cstdlib>
#include <map>

namespace t_genproc::bench {
namespace {

/// Where a text is read to counts: some processors copy several times slower to places 16 bytes off a page.
alignas(4096) char buffer[8 << 20];

class BareCalls : public Peer {
   public:
    bool isBare() const override { return true; }
    std::string read(const Entry& entry) override {
        const int file = ::open(entry.file.c_str(), O_RDONLY | O_CLOEXEC);
        if (::read(file, buffer, sizeof buffer) < 0) std::abort();
        ::close(file);
        return {};
    }
    void write(const Entry& entry) override {
        Text& text = texts_[entry.file];
        if (text.bytes.empty()) text = {entry.file + ".new", textOf(entry.file)};
        const int file = ::open(text.newName.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (::write(file, text.bytes.data(), text.bytes.size()) < 0) std::abort();
        ::close(file);
        if (::rename(text.newName.c_str(), entry.file.c_str()) != 0) std::abort();
    }

   private:
    struct Text {
        std::string newName, bytes;
    };
    std::map<std::string, Text> texts_;
};

class PlatformCalls : public Peer {
   public:
    std::string read(const Entry& entry) override {
        return profiles().GetPrivateProfileStringA(entry.section, entry.key, "", 200, "Z:" + entry.file);
    }
    void write(const Entry& entry) override {
        profiles().WritePrivateProfileStringA(entry.section, entry.key, entry.value, "Z:" + entry.file);
    }

   private:
    ProfileFiles& profiles() { return *platform_.profileFiles; }
    Platform platform_ = benchPlatform();
};

class Procedures : public Peer {
   public:
    std::string read(const Entry& entry) override {
        return host_.procs().INIstringGet("Z:" + entry.file, entry.section, entry.key);
    }
    void write(const Entry& entry) override {
        host_.procs().INIstringSet("Z:" + entry.file, entry.section, entry.key, entry.value);
    }
    void save(const std::vector<Entry>& writes) override { host_.save(writes.front().file); }

   private:
    SettingsHost host_;
};

class SimpleIni : public Peer {
   public:
    std::string read(const Entry& entry) override {
        CSimpleIniCaseA ini;
        ini.LoadFile(entry.file.c_str());
        return ini.GetValue(entry.section.c_str(), entry.key.c_str(), "");
    }
    void write(const Entry& entry) override {
        CSimpleIniCaseA ini;
        ini.LoadFile(entry.file.c_str());
        ini.SetValue(entry.section.c_str(), entry.key.c_str(), entry.value.c_str());
        ini.SaveFile(entry.file.c_str(), false);
    }
};

class KeyFile : public Peer {
   public:
    std::string read(const Entry& entry) override {
        const Keys keys = load(entry.file);
        const std::unique_ptr<char, void (*)(void*)> value(
            g_key_file_get_value(keys.get(), entry.section.c_str(), entry.key.c_str(), nullptr), &g_free);
        return value == nullptr ? "" : value.get();
    }
    void write(const Entry& entry) override {
        const Keys keys = load(entry.file);
        g_key_file_set_value(keys.get(), entry.section.c_str(), entry.key.c_str(), entry.value.c_str());
        g_key_file_save_to_file(keys.get(), entry.file.c_str(), nullptr);
    }

   private:
    using Keys = std::unique_ptr<GKeyFile, void (*)(GKeyFile*)>;
    static Keys load(const std::string& file) {
        Keys keys(g_key_file_new(), &g_key_file_free);
        g_key_file_load_from_file(keys.get(), file.c_str(), G_KEY_FILE_KEEP_COMMENTS, nullptr);
        return keys;
    }
};

class Settings : public Peer {
   public:
    std::string read(const Entry& entry) override {
        const QSettings settings(text(entry.file), QSettings::IniFormat);
        return settings.value(text(entry.section + "/" + entry.key)).toString().toStdString();
    }
    void write(const Entry& entry) override {
        QSettings settings(text(entry.file), QSettings::IniFormat);
        settings.setValue(text(entry.section + "/" + entry.key), text(entry.value));
        settings.sync();
    }

   private:
    static QString text(const std::string& utf8) { return QString::fromStdString(utf8); }
};

template <class Kind>
std::unique_ptr<Peer> make() {
    return std::make_unique<Kind>();
}

constexpr NamedPeer kPeers[] = {
    {"system calls alone", make<BareCalls>},
    {"ProfileFiles", make<PlatformCalls>},
    {"cGenProcs", make<Procedures>},
    {"SimpleIni", make<SimpleIni>},
    {"GKeyFile", make<KeyFile>},
    {"QSettings", make<Settings>},
};

}  // namespace

std::span<const NamedPeer> peers() { return kPeers; }

}  // namespace t_genproc::bench
