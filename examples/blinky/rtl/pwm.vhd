-- SPDX-FileCopyrightText: 2026 KelmoWare
-- SPDX-License-Identifier: LGPL-2.1-or-later

library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

-- Pulse width modulation: q is high for duty of every 256 cycles. A new duty
-- takes effect at the start of the next period, so that no pulse is cut.
entity pwm is
    port (
        clk  : in  std_logic;
        duty : in  std_logic_vector(7 downto 0);
        q    : out std_logic
    );
end entity pwm;

architecture rtl of pwm is
    signal ramp    : unsigned(7 downto 0) := (others => '0');
    signal current : unsigned(7 downto 0) := (others => '0');
begin

    process (clk)
    begin
        if rising_edge(clk) then
            ramp <= ramp + 1;
            if ramp = 255 then
                current <= unsigned(duty);
            end if;
            if ramp < current then
                q <= '1';
            else
                q <= '0';
            end if;
        end if;
    end process;

end architecture rtl;
