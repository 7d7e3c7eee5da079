-- What hublink.wxs means and wixl 0.101 does not write: one statement a line, @VERSION@ and @PROPERTIES@ replaced.

-- The programs' versions. Without them Windows Installer would never replace a file that has one.
UPDATE `File` SET `Version` = '@VERSION@.0', `Language` = '1033' WHERE `File` = 'hublink.exe'
UPDATE `File` SET `Version` = '@VERSION@.0', `Language` = '1033' WHERE `File` = 'PavexConvId.exe'
UPDATE `File` SET `Version` = '@VERSION@.0', `Language` = '1033' WHERE `File` = 'HublinkCheck.exe'
DELETE FROM `MsiFileHash` WHERE `File_` = 'hublink.exe'
DELETE FROM `MsiFileHash` WHERE `File_` = 'PavexConvId.exe'
DELETE FROM `MsiFileHash` WHERE `File_` = 'HublinkCheck.exe'

-- Short names for those that are longer than 8.3.
UPDATE `File` SET `FileName` = 'PAVEXC~1.EXE|PavexConvId.exe' WHERE `File` = 'PavexConvId.exe'
UPDATE `File` SET `FileName` = 'HUBLIN~1.EXE|HublinkCheck.exe' WHERE `File` = 'HublinkCheck.exe'
UPDATE `File` SET `FileName` = 'PAVEXC~1.INI|pavexconnector.ini' WHERE `File` = 'pavexconnector.ini'
UPDATE `Directory` SET `DefaultDir` = 'DICTIO~1|dictionary' WHERE `Directory` = 'DictionaryFolder'
UPDATE `Shortcut` SET `Name` = 'HUBLIN~1|Hublink Check' WHERE `Shortcut` = 'CheckEntry'

-- An older version gives way (256: its lowest version included), also a package of the same
-- version that was built anew (512: the highest included).
INSERT INTO `Upgrade` (`UpgradeCode`, `VersionMin`, `VersionMax`, `Attributes`, `ActionProperty`) VALUES ('{5B0E9C7A-6B0D-4C0B-9A57-1E6F0C3B7D21}', '0.0.0', '@VERSION@', 768, 'OLDERVERSION')

-- Setting a property knows no rights; this one runs only when the installation is undone (256).
UPDATE `CustomAction` SET `Type` = 51 WHERE `Action` = 'UseFormerFolder'
UPDATE `CustomAction` SET `Type` = 51 WHERE `Action` = 'TellFolder'
UPDATE `CustomAction` SET `Type` = 1 WHERE `Action` = 'StopHublink'
UPDATE `CustomAction` SET `Type` = 1 WHERE `Action` = 'CollectSettings'
UPDATE `CustomAction` SET `Type` = 3137 WHERE `Action` = 'StartHublink'
UPDATE `CustomAction` SET `Type` = 3393 WHERE `Action` = 'StartHublinkAgain'

-- Whose map server is registered.
INSERT INTO `RegLocator` (`Signature_`, `Root`, `Key`, `Type`) VALUES ('OtherMapServer', 2, 'SOFTWARE\Classes\PavexConvId.OrvelConvertId\CLSID', 2)
INSERT INTO `AppSearch` (`Property`, `Signature_`) VALUES ('MAPSERVER', 'OtherMapServer')
UPDATE `Component` SET `Condition` = 'NOT MAPSERVER OR MAPSERVER~="{6FC819A5-645C-4241-8809-6BBBE1AF913F}"' WHERE `Component` = 'MapServerClass'

-- The properties that a command line may give: they reach the part that runs with the system's rights.
UPDATE `Property` SET `Value` = 'OLDERVERSION;NEWERVERSION;INSTALLDIR;@PROPERTIES@' WHERE `Property` = 'SecureCustomProperties'
