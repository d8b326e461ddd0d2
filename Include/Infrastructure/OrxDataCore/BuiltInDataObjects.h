#pragma once

// The typed values of a data file and their serializers, in one include.

#include "Infrastructure/OrxDataCore/Data.h"
#include "Infrastructure/OrxDataCore/DataObject.h"
#include "Infrastructure/OrxDataCore/DataTypeTraits.h"
#include "Infrastructure/OrxDataCore/GenericWrapper.h"
#include "Infrastructure/OrxDataCore/MutexLockableDataObject.h"
#include "Infrastructure/OrxDataCore/Serializer.h"
