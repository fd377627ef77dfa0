#pragma once

#include "CatalogueRow.h"

/**
 * @file
 * The kinds of rows that the menu has many of. Every stored number is 5, its default 6, and 7 is
 * written; a flag is 1, its default 0; an information reads as its own number.
 */

/** A key of the settings store for value, default and change. */
CatalogueRow integerKey(const std::string& path, const std::string& key, bool flag = flagSet);
CatalogueRow flagKey(const std::string& path, const std::string& key);
CatalogueRow textKey(const std::string& path, const std::string& key);

/** Read from the runtime information, set as the system setting of that number. */
CatalogueRow systemSetting(const std::string& path, int number, const std::string& defaultKey);

/** A setting of the picture/sound library, by the name that its calls end in. */
CatalogueRow pictureControl(const std::string& path, const std::string& name);
CatalogueRow soundStyleControl(const std::string& path, const std::string& name);
CatalogueRow energyControl(const std::string& path, const std::string& name);
CatalogueRow gameModeControl(const std::string& path);

/** An information of the set, read-only. */
CatalogueRow systemText(const std::string& path, int number);
CatalogueRow systemNumber(const std::string& path, int number, const std::string& fixedDefault);
CatalogueRow runtimeCounter(const std::string& path, int number);

/** Something that is asked of the connection in use, read-only. */
CatalogueRow connectionRow(const std::string& path, const std::string& call,
                           const std::string& value);

/** Something that the HDMI processor tells of the source in front, read-only. */
CatalogueRow hdmiRow(const std::string& path, const std::string& value);
