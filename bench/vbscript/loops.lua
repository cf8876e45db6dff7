local function count(rounds)
    local total = 0
    for i = 1, rounds do
        for j = 1, 200 do
            for k = 1, 200 do
                if (i + j + k) % 7 == 0 then total = total + k end
            end
        end
    end
    return total
end

print(count(250))
