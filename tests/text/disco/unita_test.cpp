// SPDX-License-Identifier: MIT
#include "text/disco/unita.h"

#include <gtest/gtest.h>

#include "sostegno/disco_finto.h"
#include "text/numero_di.h"

namespace morvella {

namespace {

// "C: / | D: /home": the drives of a mountinfo. Places in `file` answer as files; who is asked
// is noted in `chiesti`.
std::string Unite(std::string_view mountinfo, const std::vector<std::string>& file = {},
                  std::vector<std::string>* chiesti = nullptr) {
    std::string tutte;
    for (const Unita& u : UnitaDaMontaggi(mountinfo, [&](const std::string& p) {
             if (chiesti) chiesti->push_back(p);
             return std::find(file.begin(), file.end(), p) == file.end();
         })) {
        EXPECT_EQ(u.Nome, u.Directory);
        tutte += (tutte.empty() ? "" : " | ") + u.Lettera + " " + u.Directory;
    }
    return tutte;
}

TEST(Unita, Portatile) {
    // The stick's name has a blank; both its bytes and the disks' order are the kernel's.
    EXPECT_EQ(Unite("22 28 0:20 / /sys rw,nosuid,nodev,noexec,relatime shared:7 - sysfs sysfs rw\n"
                    "23 28 0:21 / /proc rw,nosuid,nodev,noexec,relatime shared:12 - proc proc rw\n"
                    "24 28 0:5 / /dev rw,nosuid,relatime shared:2 - devtmpfs udev rw,size=8000k,mode=755\n"
                    "26 28 0:23 / /run rw,nosuid,nodev shared:5 - tmpfs tmpfs rw,size=1600k,mode=755\n"
                    "28 1 259:2 / / rw,relatime shared:1 - ext4 /dev/nvme0n1p2 rw,errors=remount-ro\n"
                    "30 22 0:6 / /sys/kernel/security rw,relatime shared:8 - securityfs securityfs rw\n"
                    "41 24 0:30 / /dev/hugepages rw,relatime shared:15 - hugetlbfs hugetlbfs rw\n"
                    "90 28 259:1 / /boot/efi rw,relatime shared:48 - vfat /dev/nvme0n1p1 rw,fmask=0077\n"
                    "93 28 259:3 / /home rw,relatime shared:50 - ext4 /dev/nvme0n1p3 rw\n"
                    "96 28 0:45 / /tmp rw,nosuid,nodev shared:52 - tmpfs tmpfs rw\n"
                    "610 26 0:60 / /run/user/1000 rw,nosuid shared:540 - tmpfs tmpfs rw,uid=1000\n"
                    "625 610 0:61 / /run/user/1000/gvfs rw shared:555 - fuse.gvfsd-fuse gvfsd-fuse rw\n"
                    "640 610 0:62 / /run/user/1000/doc rw shared:560 - fuse.portal portal rw\n"
                    "655 28 8:17 / /media/utente/CHIAVE\\040USB rw,nosuid shared:570 - vfat /dev/sdb1 rw\n"),
              "C: / | D: /home | E: /media/utente/CHIAVE USB");
}

TEST(Unita, Scatole) {
    // Programs that come as images in files, and a system that shows its own disk again.
    EXPECT_EQ(Unite("29 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
                    "80 29 7:0 / /snap/bare/5 ro,nodev shared:44 - squashfs /dev/loop0 ro\n"
                    "81 29 7:1 / /snap/core20/2318 ro,nodev shared:46 - squashfs /dev/loop1 ro\n"
                    "84 29 7:2 / /opt/immagine ro shared:47 - iso9660 /dev/loop2 ro\n"
                    "85 29 0:44 / /tmp/.mount_Edit12 ro - fuse.Editor.AppImage Editor.AppImage ro\n"
                    "86 29 8:2 /usr/share/hunspell /var/snap/web/common/hunspell ro - ext4 /dev/sda2 rw\n"
                    "87 29 8:2 /srv/dati /opt/dati rw - ext4 /dev/sda2 rw\n"
                    "88 29 8:3 / /var rw - ext4 /dev/sda3 rw\n"
                    "89 29 8:4 / /dati rw - xfs /dev/mapper/vg-dati rw\n"
                    "91 29 8:4 / /opt/altrove rw - xfs /dev/mapper/vg-dati rw\n"),
              "C: / | D: /dati");
}

TEST(Unita, Contenitore) {
    // One disk of the host lends three files and a directory. Only what may be a file is asked.
    constexpr std::string_view Montaggi =
        "700 600 0:70 / / rw,relatime - overlay overlay rw,lowerdir=/l/A:/l/B,upperdir=/u,workdir=/w\n"
        "701 700 0:73 / /proc rw - proc proc rw\n"
        "702 700 0:74 / /dev rw - tmpfs tmpfs rw,size=65536k\n"
        "705 700 8:1 /contenitori/12/resolv.conf /etc/resolv.conf rw - ext4 /dev/sda1 rw\n"
        "706 700 8:1 /contenitori/12/hosts /etc/hosts rw - ext4 /dev/sda1 rw\n"
        "707 700 8:1 /home/utente/licenza.txt /licenza.txt rw - ext4 /dev/sda1 rw\n"
        "708 700 8:1 /home/utente/progetti /lavoro rw - ext4 /dev/sda1 rw\n"
        "709 700 0:80 / /segreti ro - tmpfs tmpfs ro\n"
        "710 700 0:81 / /mnt/memoria rw - tmpfs tmpfs rw\n";
    std::vector<std::string> chiesti;
    EXPECT_EQ(Unite(Montaggi, {"/licenza.txt"}, &chiesti), "C: / | D: /lavoro | E: /mnt/memoria");
    EXPECT_EQ(chiesti, (std::vector<std::string>{"/licenza.txt", "/lavoro"}));
}

TEST(Unita, Rete) {
    std::vector<std::string> chiesti;
    EXPECT_EQ(
        Unite("29 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
              "50 29 0:50 /progetti /lavoro rw,relatime shared:9 - nfs4 server:/progetti rw,vers=4.2\n"
              "51 29 0:51 / /srv/ufficio rw - cifs //nas/ufficio rw,vers=3.1.1\n"
              "52 29 0:52 / /home/utente/remoto rw - fuse.sshfs utente@server: rw,user_id=1000\n"
              "53 29 0:53 / /host rw - 9p cartella rw,trans=virtio\n"
              "54 29 0:54 / /mnt/nas rw - autofs systemd-1 rw,fd=42\n"
              "55 54 0:55 / /mnt/nas rw - nfs server:/nas rw,vers=3\n"
              "56 29 0:56 / /attesa rw - autofs systemd-1 rw,fd=43\n"
              "57 29 0:57 / /usr/lib/host rw - 9p librerie rw\n"
              "58 29 0:58 / /mnt/c rw,noatime - 9p C:\\134 rw,aname=drvfs\n",
              {}, &chiesti),
        "C: / | D: /home/utente/remoto | E: /host | F: /lavoro | G: /mnt/c | H: /mnt/nas | I: /srv/ufficio");
    EXPECT_TRUE(chiesti.empty()); // a server that has gone is not waited for
}

TEST(Unita, Sottovolumi) {
    // One disk, as its own parts: shown once. A disk of another number below it is another drive.
    std::vector<std::string> chiesti;
    EXPECT_EQ(
        Unite("29 1 0:26 /@ / rw shared:1 - btrfs /dev/sda2 rw,subvolid=256,subvol=/@\n"
              "40 29 0:26 /@home /home rw shared:20 - btrfs /dev/sda2 rw,subvolid=257,subvol=/@home\n"
              "41 29 0:33 /@foto /foto rw shared:21 - btrfs /dev/sdb1 rw,subvolid=258,subvol=/@foto\n"
              "42 29 0:33 /@foto/a /album rw shared:21 - btrfs /dev/sdb1 rw,subvolid=258,subvol=/@foto\n"
              "43 29 0:34 /@/x /mostra rw shared:22 - btrfs /dev/sdc1 rw,subvolid=259,subvol=/@\n",
              {}, &chiesti),
        "C: / | D: /foto | E: /mostra");
    EXPECT_EQ(chiesti, std::vector<std::string>{"/mostra"});
}

TEST(Unita, Luoghi) {
    struct Caso {
        const char* Montaggio;
        const char* Atteso;
    };
    constexpr Caso Casi[] = {
        {"2 1 8:9 / /boot rw - ext4 /dev/sda9 rw", "C: /"},
        {"2 1 8:9 / /bootleg rw - ext4 /dev/sda9 rw", "C: / | D: /bootleg"}, // whole names
        {"2 1 8:9 / /efi rw - vfat /dev/sda9 rw", "C: /"},
        {"2 1 8:9 / /run/dischi rw - ext4 /dev/sda9 rw", "C: /"},
        {"2 1 8:9 / /run/media/utente/x rw - ext4 /dev/sda9 rw", "C: / | D: /run/media/utente/x"},
        {"2 1 0:9 / /run/media rw - tmpfs tmpfs rw", "C: /"},
        {"2 1 0:9 / /media rw - tmpfs tmpfs rw", "C: /"}, // holds volumes, is none
        {"2 1 8:9 / /mnt rw - ext4 /dev/sda9 rw", "C: / | D: /mnt"},
        {"2 1 7:9 / /media/cd ro - iso9660 /dev/loop9 ro", "C: / | D: /media/cd"}, // mounted by hand
        {"2 1 8:2 / /mnt/radice rw - ext4 /dev/sda2 rw", "C: / | D: /mnt/radice"}, // the root once more
        {"2 1 0:9 / /dati rw - zfs vasca/dati rw", "C: /"},
        {"2 1 8:9 / /a\\134b\\011c\\012d rw - ext4 /dev/sda9 rw", "C: / | D: /a\\b\tc\nd"},
        {"2 1 8:9 / /a\\13 rw - ext4 /dev/sda9 rw", "C: / | D: /a\\13"},     // no escape
        {"2 1 8:9 / /a\\777 rw - ext4 /dev/sda9 rw", "C: / | D: /a\\777"},   // no byte
        {"2 1 8:9 / /x rw a:1 b:2 c:3 - ext4 /dev/sda9 rw", "C: / | D: /x"}, // any number of tags
        {"2 1 8:9 / /x rw", "C: /"},                                         // cut short
        {"2 1 8:9 / /x rw -", "C: /"},
        {"2 1 8:9 / /x rw - ext4", "C: /"},
        {"2 1", "C: /"},
        {"", "C: /"},
    };
    for (const Caso& c : Casi)
        for (const char* fine : {"", "\n", "\n\n"})
            EXPECT_EQ(Unite("1 0 8:2 / / rw - ext4 /dev/sda2 rw\n" + std::string(c.Montaggio) + fine),
                      c.Atteso)
                << c.Montaggio;
    EXPECT_EQ(Unite(""), "C: /"); // a system that tells nothing
}

TEST(Unita, IlPrimoMontaggioEIlVolume) {
    // The root's line may come late; the root's disk elsewhere is no drive all the same.
    EXPECT_EQ(Unite("5 1 8:2 /x /dati rw - ext4 /dev/sda2 rw\n"
                    "6 1 8:5 / /zeta rw - ext4 /dev/sda5 rw\n"
                    "7 1 8:5 / /alfa rw - ext4 /dev/sda5 rw\n"
                    "8 1 8:6 / /zeta rw - ext4 /dev/sda6 rw\n" // over the first /zeta
                    "9 1 8:2 / / rw - ext4 /dev/sda2 rw\n"),
              "C: / | D: /alfa | E: /zeta");
}

TEST(Unita, LettereFinoAZ) {
    std::string montaggi;
    for (char c = 'a'; c <= 'z'; ++c)
        montaggi += std::string("2 1 8:") + c + " / /disco-" + c + " rw - ext4 /dev/sd" + c + " rw\n";
    const auto unita = UnitaDaMontaggi(montaggi, [](const std::string&) { return true; });
    ASSERT_EQ(unita.size(), 24u); // C: to Z:
    EXPECT_EQ(unita[1], (Unita{"D:", "/disco-a", "/disco-a"}));
    EXPECT_EQ(unita[23], (Unita{"Z:", "/disco-w", "/disco-w"}));
}

TEST(Unita, UnitaDi) {
    const std::vector<Unita> posix = {
        {"C:", "/", "/"}, {"D:", "/home", ""}, {"E:", "/home/utente/remoto", ""}, {"F:", "/mnt/a b", ""}};
    struct Caso {
        const char* Percorso;
        const char* Lettera;
    };
    constexpr Caso Casi[] = {
        {"/", "C:"},
        {"/etc", "C:"},
        {"/home", "D:"},
        {"/home/", "D:"},
        {"/home/utente", "D:"},
        {"/homer/utente", "C:"}, // whole names
        {"/Home", "C:"},
        {"/home/utente/remoto/x/y", "E:"}, // the longest
        {"/home/utente/remoto2", "D:"},
        {"/mnt/a b/c", "F:"},
        {"/mnt/a", "C:"},
        {"", ""},
        {"relativo", ""},
    };
    for (const Caso& c : Casi) EXPECT_EQ(UnitaDi(posix, c.Percorso), c.Lettera) << c.Percorso;

    const std::vector<Unita> windows = {{"C:", "C:/", "Sistema"}, {"D:", "D:/", ""}};
    constexpr Caso CasiWindows[] = {
        {"C:/", "C:"}, {"C:/x", "C:"},     {"d:/x", "D:"}, {"D:", "D:"},
        {"E:/x", ""},  {"//srv/sh/x", ""}, {"", ""},
    };
    for (const Caso& c : CasiWindows) EXPECT_EQ(UnitaDi(windows, c.Percorso), c.Lettera) << c.Percorso;
    EXPECT_EQ(UnitaDi({}, "/x"), "");
}

TEST(Unita, DirectoryUnita) {
    using prove::NumeroDi;
    prove::DiscoFinto disco;
    disco.FaiDirectory("/disco/d");
    disco.Metti("/disco/file", "");
    disco.Unita = {{"C:", "/"}, {"D:", "/disco/d"}, {"E:", "/disco/file"}, {"F:", "/manca"}};
    EXPECT_EQ(disco.DirectoryUnita("C:"), "/");
    EXPECT_EQ(disco.DirectoryUnita("D:"), "/disco/d");
    EXPECT_EQ(disco.DirectoryUnita("d:"), "/disco/d");
    for (const char* unita : {"E:", "F:", "G:", "", ":", "D", "D;", "DD:", "D:\\"})
        EXPECT_EQ(NumeroDi([&] { return disco.DirectoryUnita(unita), 0; }), 71) << unita;
    disco.Fallisci("Esamina", "/disco/d", 57); // a drive that does not answer, for whatever reason
    EXPECT_EQ(NumeroDi([&] { return disco.DirectoryUnita("D:"), 0; }), 71);
}

} // namespace

} // namespace morvella
