#include "base/Provided.h"
#include "base/IRouteExecutor.h"

#include <gtest/gtest.h>

namespace {

class Executor final : public IRouteExecutor
{
public:
    bool ExecuteRoute(const VXRouterProtocol&) override { return true; }
    QObject* GetRouteObject(const VXRouterProtocol&) override { return nullptr; }
};

TEST(ProvidedTest, NothingIsProvidedAtFirst)
{
    EXPECT_EQ(IRouteExecutor::Provided(), nullptr);
}

TEST(ProvidedTest, ProvidesForAsLongAsItLives)
{
    Executor executor;
    {
        const Provided<IRouteExecutor> provided(&executor);
        EXPECT_EQ(IRouteExecutor::Provided(), &executor);
    }
    EXPECT_EQ(IRouteExecutor::Provided(), nullptr);
}

TEST(ProvidedTest, PutsBackWhatWasProvidedBefore)
{
    Executor outer;
    Executor inner;
    const Provided<IRouteExecutor> providedOuter(&outer);
    {
        const Provided<IRouteExecutor> providedInner(&inner);
        EXPECT_EQ(IRouteExecutor::Provided(), &inner);
        {
            const Provided<IRouteExecutor> nobody(nullptr);
            EXPECT_EQ(IRouteExecutor::Provided(), nullptr);
        }
        EXPECT_EQ(IRouteExecutor::Provided(), &inner);
    }
    EXPECT_EQ(IRouteExecutor::Provided(), &outer);
}

} // namespace
