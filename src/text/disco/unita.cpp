// SPDX-License-Identifier: MIT
#include "text/disco/unita.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

namespace morvella {

namespace {

// One line of mountinfo.
struct Montaggio {
    std::string Dispositivo; // "8:2"
    std::string Radice;      // which directory of its file system is shown
    std::string Punto;
    std::string Tipo;
    std::string Origine; // "/dev/sda2", "server:/export", or a word
    std::string Opzioni; // of the file system
};

// The next word of a line.
std::string_view Parola(std::string_view& resto) {
    const std::size_t fine = std::min(resto.find(' '), resto.size());
    const std::string_view parola = resto.substr(0, fine);
    resto.remove_prefix(std::min(fine + 1, resto.size()));
    return parola;
}

// Blanks, TABs, line ends and "\" stand in a word as "\" with three octal digits.
std::string SenzaOttali(std::string_view parola) {
    const auto cifra = [&](std::size_t i) {
        return i < parola.size() && parola[i] >= '0' && parola[i] <= '7';
    };
    std::string testo;
    for (std::size_t i = 0; i < parola.size(); ++i) {
        if (parola[i] == '\\' && cifra(i + 1) && parola[i + 1] <= '3' && cifra(i + 2) && cifra(i + 3)) {
            testo += static_cast<char>((parola[i + 1] - '0') * 64 + (parola[i + 2] - '0') * 8 +
                                       parola[i + 3] - '0');
            i += 3;
        } else {
            testo += parola[i];
        }
    }
    return testo;
}

// Id, parent, device, root, mount point, options, any number of tags, "-", type, source, options.
std::optional<Montaggio> LeggiMontaggio(std::string_view riga) {
    Montaggio m;
    Parola(riga);
    Parola(riga);
    m.Dispositivo = Parola(riga);
    m.Radice = SenzaOttali(Parola(riga));
    m.Punto = SenzaOttali(Parola(riga));
    while (!riga.empty() && Parola(riga) != "-") {
    }
    m.Tipo = Parola(riga);
    m.Origine = SenzaOttali(Parola(riga));
    m.Opzioni = SenzaOttali(Parola(riga));
    if (!m.Punto.starts_with('/') || m.Tipo.empty()) return std::nullopt;
    return m;
}

// Whether `percorso` is `directory` or lies below it.
bool In(std::string_view percorso, std::string_view directory) {
    if (directory == "/") return percorso.starts_with('/');
    return percorso.starts_with(directory) &&
           (percorso.size() == directory.size() || percorso[directory.size()] == '/');
}

// Where desktops and people mount what they mount.
bool LuogoDiVolumi(std::string_view punto) {
    constexpr std::array<std::string_view, 3> Luoghi = {"/media", "/run/media", "/mnt"};
    return std::any_of(Luoghi.begin(), Luoghi.end(),
                       [&](std::string_view luogo) { return punto != luogo && In(punto, luogo); });
}

// The system's own directories, on whatever disk: nobody keeps a project there.
bool LuogoDelSistema(std::string_view punto) {
    constexpr std::array<std::string_view, 12> Luoghi = {"/boot", "/dev",  "/efi", "/etc", "/nix", "/proc",
                                                         "/run",  "/snap", "/sys", "/tmp", "/usr", "/var"};
    return std::any_of(Luoghi.begin(), Luoghi.end(),
                       [&](std::string_view luogo) { return In(punto, luogo); });
}

bool DiRete(std::string_view tipo) {
    // Shares of a server, and of the host of a virtual machine.
    constexpr std::array<std::string_view, 20> Tipi = {"9p",
                                                       "afs",
                                                       "ceph",
                                                       "cifs",
                                                       "fuse.ceph",
                                                       "fuse.curlftpfs",
                                                       "fuse.davfs2",
                                                       "fuse.glusterfs",
                                                       "fuse.rclone",
                                                       "fuse.s3fs",
                                                       "fuse.smbnetfs",
                                                       "fuse.sshfs",
                                                       "fuse.vmhgfs-fuse",
                                                       "glusterfs",
                                                       "nfs",
                                                       "nfs4",
                                                       "prl_fs",
                                                       "smb3",
                                                       "vboxsf",
                                                       "virtiofs"};
    return std::find(Tipi.begin(), Tipi.end(), tipo) != Tipi.end();
}

// A real disk, not an image file (programs are shipped as such).
bool DiDisco(const Montaggio& m) {
    return m.Origine.starts_with("/dev/") && !m.Origine.starts_with("/dev/loop");
}

// Whether it shows a part of a file system in a second place, and so perhaps a single file. A
// subvolume is no such part: it has its name in the options.
bool Parziale(const Montaggio& m) {
    return m.Radice != "/" && !DiRete(m.Tipo) &&
           !(',' + m.Opzioni + ',').ends_with(",subvol=" + m.Radice + ',');
}

} // namespace

std::string UnitaDi(const std::vector<Unita>& unita, const std::string& percorso) {
    const Unita* dove = nullptr;
    for (const Unita& u : unita) {
        std::string cima = u.Directory;
        std::string cercato = percorso;
        if (cima.size() > 1 && cima[1] == ':' && !percorso.empty()) { // "d:/x" lies on "D:/"
            cima[0] = static_cast<char>(cima[0] & ~0x20);
            cercato[0] = static_cast<char>(cercato[0] & ~0x20);
        }
        while (cima.size() > 1 && cima.back() == '/') cima.pop_back();
        if (In(cercato, cima) && (!dove || u.Directory.size() > dove->Directory.size())) dove = &u;
    }
    return dove ? dove->Lettera : "";
}

std::vector<Unita> UnitaDaMontaggi(std::string_view mountinfo,
                                   const std::function<bool(const std::string&)>& directory) {
    std::vector<Montaggio> tutti;
    while (!mountinfo.empty()) {
        const std::size_t fine = std::min(mountinfo.find('\n'), mountinfo.size());
        std::optional<Montaggio> m = LeggiMontaggio(mountinfo.substr(0, fine));
        mountinfo.remove_prefix(std::min(fine + 1, mountinfo.size()));
        if (!m) continue;
        // What is mounted over another hides it.
        std::erase_if(tutti, [&](const Montaggio& altro) { return altro.Punto == m->Punto; });
        tutti.push_back(std::move(*m));
    }
    // A disk is listed once: at the root if it is mounted there, wherever that line stands, else at
    // its first mount point. A mount in a place for volumes is listed even if its disk is already:
    // whoever mounts there wants to see it there.
    std::set<std::string> visti;
    for (const Montaggio& m : tutti)
        if (m.Punto == "/") visti.insert(m.Dispositivo);
    std::set<std::string> punti;
    for (const Montaggio& m : tutti) {
        if (m.Punto == "/") continue;
        const bool diVolumi = LuogoDiVolumi(m.Punto);
        if (!diVolumi && (LuogoDelSistema(m.Punto) || visti.contains(m.Dispositivo))) continue;
        if (!diVolumi && !DiDisco(m) && !DiRete(m.Tipo)) continue;
        if (Parziale(m) && !directory(m.Punto)) continue;
        visti.insert(m.Dispositivo);
        punti.insert(m.Punto);
    }
    std::vector<Unita> unita = {{"C:", "/", "/"}};
    for (const std::string& punto : punti) {
        if (unita.size() > 'Z' - 'C') break;
        unita.push_back({{static_cast<char>('C' + unita.size()), ':'}, punto, punto});
    }
    return unita;
}

} // namespace morvella
