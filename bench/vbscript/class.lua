local Account = {}
Account.__index = Account

function Account.new()
    return setmetatable({ balance_ = 0 }, Account)
end

function Account:balance()
    return self.balance_
end

function Account:set_balance(amount)
    self.balance_ = amount
end

function Account:deposit(amount)
    self.balance_ = self.balance_ + amount
end

local function work(rounds)
    local account = Account.new()
    for i = 1, rounds do
        account:deposit(i % 10)
        if account:balance() > 1000000 then account:set_balance(account:balance() - 1000000) end
    end
    print(account:balance())
end

work(2000000)
