#include <cstdlib>

#include "app/composition_picture_service.h"
#include "platform/macos/pictures/image_io_pictures.h"
#include "platform/posix/picture_service.h"

namespace rondora {

int runPictureService(int /*argc*/, char** /*argv*/) {
  desktop::servePictures([](const PictureRequest& request) {
    @autoreleasepool {
      return macos::decodePicture(request);
    }
  });
  return EXIT_SUCCESS;
}

}  // namespace rondora
