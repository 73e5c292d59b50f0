#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "description/language/param_index.h"
#include "standalone/scripting/dialogs.h"
#include "tests/support/instance_test.h"

namespace quiltor::testing_support {

// A test that opens the dialogs as a person does and lets the steps of an automation answer them. The scripts are the
// module's own. Everything lies in data folders of the test's own.
class DialogsTest : public InstanceTest {
 protected:
  explicit DialogsTest(A_AppID appId = kAppId_AfterEffects);

  // Files in the folder "Quiltor" of all users, and in that of this user.
  std::string shared(const std::string& name) const { return folder.path("all/Quiltor/" + name); }
  std::string own(const std::string& name) const { return userFolder() + "/" + name; }

  // Where the conversion puts the thumbnail of an image.
  std::string thumbnailOf(const std::string& path) const;

  static bool exists(const std::string& path);
  // The names in a folder, sorted; none without it.
  static std::vector<std::string> namesIn(const std::string& path);

  // These make the folders above the file, too.
  static void put(const std::string& path, const std::string& text);
  static void putImage(const std::string& path, const std::vector<uint8_t>& colour = {200, 100, 50});
  // Images 000.png, 001.png and so on.
  static void putImages(const std::string& path, int count);
  // The list of all users.
  void putList(const std::vector<std::string>& lines) const;

  struct Opened {
    PF_Err code = PF_Err_NONE;
    PF_OutFlags outFlags = 0;
    bool handled = false;
    bool ran = false;                     // whether there was a script
    std::string result;                   // its result
    std::string printed;                  // by the steps, and alerts and the like
    std::vector<std::string> complaints;  // expected to be none unless the test says so
  };
  enum class Complaints { NotExpected, Expected };

  // A click on the pattern control. The conversion that it may start ends before the dialog opens, so that what the
  // dialog shows does not depend on the machine's load, and one that the dialog asks for ends before this returns.
  Opened click(const std::string& steps, Complaints expected = Complaints::NotExpected);
  // The button of the effect that opens the settings.
  Opened openSettings(const std::string& steps);

 private:
  template <class Deed>
  Opened open(const std::string& steps, Complaints expected, Deed deed);
};

}  // namespace quiltor::testing_support
