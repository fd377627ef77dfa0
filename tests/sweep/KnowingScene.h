#pragma once

#include "DeviceInfoManager.h"
#include "FakePlatform.h"

#include <string>
#include <vector>

namespace klx::test {

/** The paths of the whole catalogue, in byte order. */
std::vector<std::string> allPaths();

/** Programs every service that the catalogue asks for more than values under keys. */
void programServices(fake::Scene& scene);

/**
 * A platform that has an answer to everything the catalogue asks and keeps what is written, for as
 * long as this lives: numbers are 1, flags are set, texts tell what they belong to.
 */
class KnowingScene {
public:
    KnowingScene();

    fake::Scene& scene() { return m_scene; }

    /** The network has no current profile, so that the registered ones are searched. */
    void withoutCurrentProfile();

private:
    void knowWhatIsAskedBy(const std::string& call);
    void joinWhatIsWrittenToWhatIsRead();

    fake::Scene m_scene;
};

/** Features of the set that a KnowingScene knows. */
constexpr auto textFeature = "com.velmora/featureconf/a text of some length";
constexpr auto numberFeature = "com.velmora/featureconf/a number";

/** A value that the property of that path takes, if any, and does not have in a KnowingScene. */
std::string anotherValue(const std::string& path);

} // namespace klx::test
