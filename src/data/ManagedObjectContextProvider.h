#pragma once

#include <functional>
#include <memory>

class ManagedObjectContext;

/// Answers the application's context, building it on first use; null when the store cannot be opened.
using ManagedObjectContextProvider = std::function<std::shared_ptr<ManagedObjectContext>()>;
