// SPDX-License-Identifier: GPL-3.0-or-later
#include "usbtmc_address.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace orb {

/// A class folder like the kernel's, with two devices of which the second has no serial number.
class UsbtmcDevicesTest : public testing::Test {
protected:
    UsbtmcDevicesTest()
    {
        addDevice("usbtmc0", "1-1", "12ab", "0001", "SN-7");
        addDevice("usbtmc1", "1-2", "12ab", "0002", "");
    }

    void addDevice(const char* name, const char* port, const char* vendor, const char* product,
                   const char* serialNumber)
    {
        const QString device = folder.filePath(QStringLiteral("devices/%1/").arg(QLatin1String(port)));
        const QString interface = device + QLatin1String(port) + QStringLiteral(":1.0");
        const QString listed = folder.filePath(QStringLiteral("class/") + QLatin1String(name));
        QDir().mkpath(interface);
        QDir().mkpath(listed);
        QFile::link(interface, listed + QStringLiteral("/device"));
        write(device + QStringLiteral("idVendor"), vendor);
        write(device + QStringLiteral("idProduct"), product);
        if (*serialNumber != 0)
            write(device + QStringLiteral("serial"), serialNumber);
    }
    static void write(const QString& path, const char* line)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(line);
        file.write("\n");
    }
    QString nameOf(const char* typed) const
    {
        return devices.resourceName(QString::fromUtf8(typed)).value_or(QStringLiteral("none"));
    }

    QTemporaryDir folder;
    UsbtmcDevices devices{folder.filePath(QStringLiteral("class")), QStringLiteral("/dev")};
};

TEST_F(UsbtmcDevicesTest, TheDevicesThatTheKernelListsArePresent)
{
    EXPECT_THAT(devices.present(), testing::ElementsAre("/dev/usbtmc0", "/dev/usbtmc1"));
    EXPECT_THAT(UsbtmcDevices(folder.filePath(QStringLiteral("none"))).present(), testing::IsEmpty());
}

TEST_F(UsbtmcDevicesTest, ADeviceFileHasTheResourceNameOfItsDevice)
{
    EXPECT_EQ(nameOf("/dev/usbtmc0"), "USB0::0x12AB::0x0001::SN-7::INSTR");
    EXPECT_EQ(nameOf(" usbtmc0 "), "USB0::0x12AB::0x0001::SN-7::INSTR");
    EXPECT_EQ(nameOf("/dev/usbtmc1"), "USB/dev/usbtmc1::INSTR"); // its identity is not known
    EXPECT_EQ(nameOf("/dev/usbtmc9"), "USB/dev/usbtmc9::INSTR");
    EXPECT_EQ(nameOf("USB/dev/usbtmc9::INSTR"), "USB/dev/usbtmc9::INSTR");
}

TEST_F(UsbtmcDevicesTest, AResourceNameIsReadInItsShortAndLowerCaseForms)
{
    const char* canonical = "USB0::0x12AB::0x0001::SN-7::INSTR";
    for (const char* typed :
         {"USB0::0x12AB::0x0001::SN-7::INSTR", "usb::0x12ab::0x1::SN-7::instr", "USB0::4779::1::SN-7",
          "USB0::0x12AB::0x0001::SN-7::0::INSTR", "USB1::0x12AB::0x0001::SN-7"})
        EXPECT_EQ(nameOf(typed), canonical) << typed;
}

TEST_F(UsbtmcDevicesTest, NothingElseIsAnAddress)
{
    for (const char* typed :
         {"", "usb", "USB0", "usbtmc", "/dev/ttyUSB0", "USB0::12AB::0001::SN-7", "USB0::0x12AB::0x10000::S",
          "USB0::0x12AB::0x0001::::INSTR", "USB0::0x12AB::0x0001", "USB0::1::2::a b", "load", "SIM::INSTR"})
        EXPECT_EQ(nameOf(typed), "none") << typed;
}

TEST_F(UsbtmcDevicesTest, AResourceNameLeadsToTheFileOfItsDeviceWhileThatIsPresent)
{
    EXPECT_EQ(devices.deviceFile(QStringLiteral("USB0::0x12AB::0x0001::SN-7::INSTR")), "/dev/usbtmc0");
    EXPECT_EQ(devices.deviceFile(QStringLiteral("USB/dev/usbtmc1::INSTR")), "/dev/usbtmc1");
    EXPECT_EQ(devices.deviceFile(QStringLiteral("USB0::0x12AB::0x0001::SN-8::INSTR")), "");
}

} // namespace orb
