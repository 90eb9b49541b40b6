// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/OpTreeAttributeSource.h>
#include <OvSylvarProducers/OpTreeFileSource.h>
#include <OvSylvarProducers/OpTreeSource.h>

#include <boost/smart_ptr/make_shared.hpp>

namespace SYLVAR {

AbstractOpTreeSource::~AbstractOpTreeSource() = default;

OpTreeSource OpTreeSource::createFromFile(const std::string& filename) {
    return OpTreeSource(boost::make_shared<const OpTreeFileSource>(filename));
}

OpTreeSource OpTreeSource::createFromGroupAttribute(const GroupAttribute& attribute) {
    return OpTreeSource(boost::make_shared<const OpTreeAttributeSource>(attribute));
}

}  // namespace SYLVAR
